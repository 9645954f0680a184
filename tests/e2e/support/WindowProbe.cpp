#include "tests/e2e/support/WindowProbe.h"

#include <algorithm>

namespace ambrio::e2e {

namespace {

BOOL CALLBACK Collect(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<WindowProbe>*>(list)->push_back(WindowProbe(window));
    return TRUE;
}

template <typename Condition>
std::optional<WindowProbe> FirstOf(const std::vector<WindowProbe>& windows, Condition condition) {
    const auto found = std::find_if(windows.begin(), windows.end(), condition);
    return found == windows.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

std::wstring WindowProbe::Text() const {
    const LRESULT length = Send(WM_GETTEXTLENGTH).value_or(0);
    // The text may grow between the two messages.
    std::wstring text(static_cast<std::size_t>(length) + 256, L'\0');
    const LRESULT copied =
        Send(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data())).value_or(0);
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

std::wstring WindowProbe::ClassName() const {
    wchar_t name[256];
    return std::wstring(name, static_cast<std::size_t>(GetClassNameW(handle_, name, 256)));
}

bool WindowProbe::IsTopmost() const {
    return (GetWindowLongW(handle_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

bool WindowProbe::ShowsPointer() const {
    const DWORD other = GetWindowThreadProcessId(handle_, nullptr);
    // The pointer's state belongs to the threads that share their input.
    AttachThreadInput(GetCurrentThreadId(), other, TRUE);
    CURSORINFO info{};
    info.cbSize = sizeof info;
    GetCursorInfo(&info);
    AttachThreadInput(GetCurrentThreadId(), other, FALSE);
    return (info.flags & CURSOR_SHOWING) != 0;
}

RECT WindowProbe::Rectangle() const {
    RECT rectangle{};
    GetWindowRect(handle_, &rectangle);
    return rectangle;
}

POINT WindowProbe::Centre() const {
    const RECT rectangle = Rectangle();
    return {(rectangle.left + rectangle.right) / 2, (rectangle.top + rectangle.bottom) / 2};
}

std::vector<WindowProbe> WindowProbe::Descendants() const {
    std::vector<WindowProbe> windows;
    EnumChildWindows(handle_, Collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

std::optional<WindowProbe> WindowProbe::Control(int id) const {
    return FirstOf(Descendants(), [id](const WindowProbe& w) { return w.ControlId() == id; });
}

std::optional<WindowProbe> WindowProbe::ControlWithText(const std::wstring& text) const {
    return FirstOf(Descendants(), [&text](const WindowProbe& w) { return w.Text() == text; });
}

std::vector<WindowProbe> WindowProbe::ControlsOfClass(const std::wstring& className) const {
    std::vector<WindowProbe> windows = Descendants();
    std::erase_if(windows, [&className](const WindowProbe& window) {
        return CompareStringOrdinal(window.ClassName().c_str(), -1, className.c_str(), -1, TRUE) !=
               CSTR_EQUAL;
    });
    return windows;
}

std::optional<LRESULT> WindowProbe::Send(UINT message, WPARAM wParam, LPARAM lParam,
                                         Milliseconds limit) const {
    DWORD_PTR result = 0;
    if (SendMessageTimeoutW(handle_, message, wParam, lParam, SMTO_NORMAL,
                            static_cast<UINT>(limit.count()), &result) == 0) {
        return std::nullopt;
    }
    return static_cast<LRESULT>(result);
}

std::vector<WindowProbe> TopLevelWindows(DWORD processId) {
    std::vector<WindowProbe> windows;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
    std::erase_if(windows, [processId](const WindowProbe& window) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window.Handle(), &owner);
        return owner != processId;
    });
    return windows;
}

std::optional<WindowProbe> WaitForWindow(DWORD processId, const std::wstring& title,
                                         Milliseconds limit) {
    std::optional<WindowProbe> found;
    // A bounded look now and then: the window may appear at any moment after the process starts,
    // and an event hook could only be set when it exists already.
    static_cast<void>(WaitUntil(
        [&] {
            found = FirstOf(TopLevelWindows(processId), [&title](const WindowProbe& window) {
                return window.IsVisible() && window.Text() == title;
            });
            return found.has_value();
        },
        limit));
    return found;
}

}  // namespace ambrio::e2e
