#include "tests/e2e/support/MessageBoxProbe.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace ambrio::e2e {

namespace {

// The system gives the text of its boxes this identifier.
constexpr int kTextId = 0xFFFF;

bool IsMessageBox(const WindowProbe& window) {
    return window.IsVisible() && window.ClassName() == L"#32770" &&
           !window.ControlsOfClass(L"Button").empty() &&
           window.ControlsOfClass(L"Static").size() <= 2 &&
           window.Descendants().size() ==
               window.ControlsOfClass(L"Button").size() + window.ControlsOfClass(L"Static").size();
}

bool ShowsIcon(const WindowProbe& control) {
    return (GetWindowLongW(control.Handle(), GWL_STYLE) & SS_TYPEMASK) == SS_ICON &&
           control.IsVisible() && control.Send(STM_GETICON).value_or(0) != 0;
}

// A picture in memory, 32 bits a pixel, whose pixels can be read.
class Picture {
  public:
    Picture(int width, int height) : width_(width), height_(height) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        context_.reset(CreateCompatibleDC(nullptr));
        SelectObject(context_.get(), bitmap_.get());
        pixels_ = static_cast<const BYTE*>(bits);
    }

    [[nodiscard]] HDC Context() const { return context_.get(); }

    void FillWith(COLORREF colour) const {
        const RECT all{0, 0, width_, height_};
        const std::unique_ptr<HBRUSH__, ObjectDeleter> brush(CreateSolidBrush(colour));
        FillRect(context_.get(), &all, brush.get());
    }

    // The mean difference of a colour component, 0 to 255.
    [[nodiscard]] long DifferenceFrom(const Picture& other) const {
        GdiFlush();
        long sum = 0;
        const int size = width_ * height_ * 4;
        for (int i = 0; i < size; ++i) {
            sum += i % 4 == 3 ? 0 : std::abs(pixels_[i] - other.pixels_[i]);
        }
        return sum / (width_ * height_ * 3);
    }

  private:
    struct ObjectDeleter {
        void operator()(HGDIOBJ object) const { DeleteObject(object); }
    };
    struct ContextDeleter {
        void operator()(HDC context) const { DeleteDC(context); }
    };

    int width_;
    int height_;
    std::unique_ptr<HBITMAP__, ObjectDeleter> bitmap_;
    // Goes first, so that the bitmap is free when it is deleted.
    std::unique_ptr<HDC__, ContextDeleter> context_;
    const BYTE* pixels_ = nullptr;
};

struct KnownIcon {
    BoxIcon Icon;
    LPCWSTR Resource;
};

}  // namespace

std::optional<MessageBoxProbe> MessageBoxProbe::Find(DWORD processId) {
    const std::vector<WindowProbe> windows = TopLevelWindows(processId);
    const auto found = std::find_if(windows.begin(), windows.end(), IsMessageBox);
    return found == windows.end() ? std::nullopt : std::optional(MessageBoxProbe(*found));
}

std::optional<MessageBoxProbe> MessageBoxProbe::Wait(DWORD processId, Milliseconds limit) {
    std::optional<MessageBoxProbe> box;
    static_cast<void>(WaitUntil(
        [&] {
            box = Find(processId);
            return box.has_value();
        },
        limit));
    return box;
}

std::wstring MessageBoxProbe::Text() const {
    const std::optional<WindowProbe> text = window_.Control(kTextId);
    return text ? text->Text() : std::wstring();
}

BoxIcon MessageBoxProbe::Icon() const {
    const std::vector<WindowProbe> statics = window_.ControlsOfClass(L"Static");
    const auto control = std::find_if(statics.begin(), statics.end(), ShowsIcon);
    if (control == statics.end()) {
        return BoxIcon::None;
    }
    const KnownIcon known[] = {{BoxIcon::CriticalStop, IDI_ERROR},
                               {BoxIcon::Question, IDI_QUESTION},
                               {BoxIcon::Exclamation, IDI_WARNING},
                               {BoxIcon::Information, IDI_INFORMATION}};
    const RECT place = control->Rectangle();
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    const Picture seen(width, height);
    BoxIcon nearest = BoxIcon::None;
    // Drawn and scaled alike, the right icon differs by next to nothing, any other by much more. A
    // box that has just come up may not be painted yet.
    static_cast<void>(WaitUntil([&] {
        const HDC screen = GetDC(nullptr);
        BitBlt(seen.Context(), 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
        const COLORREF background = GetPixel(screen, place.left, place.top);
        ReleaseDC(nullptr, screen);
        long least = 12;
        for (const KnownIcon& candidate : known) {
            const Picture drawn(width, height);
            drawn.FillWith(background);
            DrawIconEx(drawn.Context(), 0, 0, LoadIconW(nullptr, candidate.Resource), width, height,
                       0, nullptr, DI_NORMAL);
            const long difference = seen.DifferenceFrom(drawn);
            if (difference < least) {
                least = difference;
                nearest = candidate.Icon;
            }
        }
        return nearest != BoxIcon::None;
    }));
    return nearest;
}

std::vector<std::wstring> MessageBoxProbe::ButtonTexts() const {
    std::vector<std::wstring> texts;
    for (const WindowProbe& button : window_.ControlsOfClass(L"Button")) {
        texts.push_back(button.Text());
        std::erase(texts.back(), L'&');
    }
    return texts;
}

bool MessageBoxProbe::Press(std::size_t button) const {
    const std::vector<WindowProbe> buttons = window_.ControlsOfClass(L"Button");
    if (button >= buttons.size()) {
        return false;
    }
    // Posted, since the box goes away while it is handled.
    buttons[button].Post(BM_CLICK);
    return WaitUntil([this] { return !window_.Exists(); });
}

}  // namespace ambrio::e2e
