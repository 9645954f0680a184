// How long a program takes from its start until its window is on the screen:
//   StartTime TITLE CHILD_CLASS PROGRAM [ARGUMENTS]
// prints the milliseconds until a window of that title has a child of that class that is visible
// and has been painted (until it is visible itself where the class is "-"), and ends the program.

#include <chrono>
#include <iostream>
#include <string>

#include "platform/win32/WindowsHeaders.h"
#include "tests/e2e/support/Handles.h"

namespace ambrio::e2e {
namespace {

constexpr std::chrono::seconds kPatience{30};

class ScreenContext {
  public:
    ScreenContext() : dc_(GetDC(nullptr)) {}
    ~ScreenContext() { ReleaseDC(nullptr, dc_); }
    ScreenContext(const ScreenContext&) = delete;
    ScreenContext& operator=(const ScreenContext&) = delete;
    [[nodiscard]] HDC Handle() const { return dc_; }

  private:
    HDC dc_;
};

// What the screen shows before the program is started.
class EmptyScreen {
  public:
    EmptyScreen()
        : dc_(CreateCompatibleDC(screen_.Handle())),
          bitmap_(CreateCompatibleBitmap(screen_.Handle(), GetSystemMetrics(SM_CXSCREEN),
                                         GetSystemMetrics(SM_CYSCREEN))),
          before_(SelectObject(dc_, bitmap_)) {
        BitBlt(dc_, 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN),
               screen_.Handle(), 0, 0, SRCCOPY);
    }
    ~EmptyScreen() {
        SelectObject(dc_, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    EmptyScreen(const EmptyScreen&) = delete;
    EmptyScreen& operator=(const EmptyScreen&) = delete;
    [[nodiscard]] COLORREF At(int x, int y) const { return GetPixel(dc_, x, y); }

  private:
    ScreenContext screen_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

// The form behind the panel is black, and may be there first. Looked at where the panel has
// neither a corner, which is round, nor a text.
bool IsPainted(HWND window, const EmptyScreen& before) {
    constexpr int kAboveBottom = 10;
    RECT place;
    GetWindowRect(window, &place);
    const int x = (place.left + place.right) / 2;
    const int y = place.bottom - kAboveBottom;
    const ScreenContext screen;
    const COLORREF pixel = GetPixel(screen.Handle(), x, y);
    return pixel != CLR_INVALID && pixel != RGB(0, 0, 0) && pixel != before.At(x, y);
}

bool IsThere(const std::wstring& title, const std::wstring& child, const EmptyScreen& before) {
    const HWND window = FindWindowW(nullptr, title.c_str());
    if (window == nullptr || IsWindowVisible(window) == FALSE) {
        return false;
    }
    if (child == L"-") {
        return true;
    }
    const HWND panel = FindWindowExW(window, nullptr, child.c_str(), nullptr);
    return panel != nullptr && IsWindowVisible(panel) != FALSE && IsPainted(panel, before);
}

int Run(const std::wstring& title, const std::wstring& child, std::wstring commandLine) {
    const EmptyScreen before;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process;
    const auto start = std::chrono::steady_clock::now();
    if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &process) == FALSE) {
        return 2;
    }
    const UniqueHandle thread(process.hThread);
    const UniqueHandle program(process.hProcess);
    std::chrono::duration<double, std::milli> lasted{};
    bool isThere = false;
    while (!isThere && lasted < kPatience) {
        Sleep(1);
        isThere = IsThere(title, child, before);
        lasted = std::chrono::steady_clock::now() - start;
    }
    TerminateProcess(program.get(), 0);
    WaitForSingleObject(program.get(), INFINITE);
    std::wcout << lasted.count() << std::endl;
    return isThere ? 0 : 1;
}

}  // namespace
}  // namespace ambrio::e2e

int wmain(int count, wchar_t** arguments) {
    if (count < 4) {
        return 2;
    }
    std::wstring commandLine = arguments[3];
    for (int i = 4; i < count; ++i) {
        commandLine += std::wstring(L" ") + arguments[i];
    }
    return ambrio::e2e::Run(arguments[1], arguments[2], commandLine);
}
