#pragma once

#include <thread>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

// The window that the display settings keep for a preview: shown, with an inner size in pixels, and
// with a thread of its own that handles its messages.
class PreviewHost {
  public:
    // Throws std::system_error when the window cannot be made.
    PreviewHost(int width, int height);
    ~PreviewHost();
    PreviewHost(const PreviewHost&) = delete;
    PreviewHost& operator=(const PreviewHost&) = delete;

    [[nodiscard]] HWND Handle() const { return window_; }
    // Its one child, or null.
    [[nodiscard]] HWND Picture() const { return GetWindow(window_, GW_CHILD); }
    // The window is gone when this returns.
    void DestroyWindow();

  private:
    HWND window_ = nullptr;
    std::thread thread_;
};

}  // namespace ambrio::e2e
