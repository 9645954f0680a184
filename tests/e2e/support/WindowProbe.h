#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win32/WindowsHeaders.h"
#include "tests/e2e/support/Waiting.h"

namespace ambrio::e2e {

// Looks at one window of another process. The window may go away at any time; what is then asked
// for is empty, false or zero.
class WindowProbe {
  public:
    explicit WindowProbe(HWND handle) : handle_(handle) {}

    [[nodiscard]] HWND Handle() const { return handle_; }
    [[nodiscard]] bool Exists() const { return IsWindow(handle_) != 0; }

    // The caption, or a control's text; waits for the window to answer for a few seconds.
    [[nodiscard]] std::wstring Text() const;
    [[nodiscard]] std::wstring ClassName() const;
    [[nodiscard]] int ControlId() const { return GetDlgCtrlID(handle_); }
    // With all windows that it lies in.
    [[nodiscard]] bool IsVisible() const { return IsWindowVisible(handle_) != 0; }
    [[nodiscard]] bool IsEnabled() const { return IsWindowEnabled(handle_) != 0; }
    [[nodiscard]] bool IsTopmost() const;
    // Whether the pointer is shown over the windows of its thread.
    [[nodiscard]] bool ShowsPointer() const;
    // Screen pixels.
    [[nodiscard]] RECT Rectangle() const;
    [[nodiscard]] POINT Centre() const;

    // Controls inside it, at any depth, in the order of the tabulator.
    [[nodiscard]] std::vector<WindowProbe> Descendants() const;
    [[nodiscard]] std::optional<WindowProbe> Control(int id) const;
    [[nodiscard]] std::optional<WindowProbe> ControlWithText(const std::wstring& text) const;
    [[nodiscard]] std::vector<WindowProbe> ControlsOfClass(const std::wstring& className) const;

    // Sends a message and waits for its result; nothing when the window did not answer in time.
    [[nodiscard]] std::optional<LRESULT> Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0,
                                              Milliseconds limit = kSoon) const;
    void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        PostMessageW(handle_, message, wParam, lParam);
    }

  private:
    HWND handle_;
};

// The top-level windows of a process, visible or not, from front to back.
[[nodiscard]] std::vector<WindowProbe> TopLevelWindows(DWORD processId);

// Waits until the process has a visible top-level window with this title.
[[nodiscard]] std::optional<WindowProbe> WaitForWindow(DWORD processId, const std::wstring& title,
                                                       Milliseconds limit = kSoon);

}  // namespace ambrio::e2e
