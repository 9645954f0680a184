#include "saver/form/BlackWindows.h"

namespace ambrio {
namespace {

class BlackWindow : public Window {
  public:
    BlackWindow(HWND form, const Area& place) : form_(form) {
        WindowDesign design;
        design.ClassName = L"AmbrioBlackWindow";
        design.Style = WS_POPUP;
        design.ExtendedStyle = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
        design.Left = place.Left;
        design.Top = place.Top;
        design.Width = place.Right - place.Left;
        design.Height = place.Bottom - place.Top;
        Create(design);
    }
    ~BlackWindow() override { Destroy(); }

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_ERASEBKGND:
                return 1;
            case WM_PAINT:
                Paint([](HDC target, const RECT& part) {
                    FillRect(target, &part, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
                });
                return 0;
            case WM_MOUSEACTIVATE:
                return MA_NOACTIVATE;
            default:
                return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST
                           ? PassOn(message, wParam, lParam)
                           : Window::Receive(message, wParam, lParam);
        }
    }

  private:
    // The form is told of places of its own, but of a wheel's place on the screen. Later, as it may
    // unload at that and take this window with it.
    LRESULT PassOn(UINT message, WPARAM wParam, LPARAM lParam) const {
        if (message == WM_MOUSEWHEEL || message == WM_MOUSEHWHEEL) {
            PostMessageW(form_, message, wParam, lParam);
            return 0;
        }
        POINT place{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        MapWindowPoints(Handle(), form_, &place, 1);
        PostMessageW(form_, message, wParam, MAKELPARAM(place.x, place.y));
        return 0;
    }

    HWND form_;
};

}  // namespace

void BlackWindows::Cover(std::span<const Area> places) {
    windows_.clear();
    for (const Area& place : places) {
        windows_.push_back(std::make_unique<BlackWindow>(form_.Handle(), place));
    }
    SetTopmost(isTopmost_);
    Show(IsWindowVisible(form_.Handle()) != FALSE);
}

void BlackWindows::Show(bool visible) {
    for (const auto& window : windows_) {
        ShowWindow(window->Handle(), visible ? SW_SHOWNOACTIVATE : SW_HIDE);
    }
}

void BlackWindows::SetTopmost(bool topmost) {
    isTopmost_ = topmost;
    for (const auto& window : windows_) {
        SetWindowPos(window->Handle(), topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                     SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    }
}

void BlackWindows::StepBehind(HWND other) {
    for (const auto& window : windows_) {
        SetWindowPos(window->Handle(), other, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    }
}

}  // namespace ambrio
