#pragma once

#include <chrono>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// A timer of a form: its window receives WM_TIMER with the timer's id while it is enabled. Disabled
// when made; disables itself when it goes away. The window is not owned.
class FormTimer {
  public:
    FormTimer(UINT_PTR id, std::chrono::milliseconds interval) : id_(id), interval_(interval) {}
    ~FormTimer() { SetEnabled(false); }
    FormTimer(const FormTimer&) = delete;
    FormTimer& operator=(const FormTimer&) = delete;

    void AttachTo(HWND window) { window_ = window; }
    void SetEnabled(bool enabled);
    [[nodiscard]] bool IsEnabled() const { return isEnabled_; }
    // Whether a WM_TIMER with this wParam is a tick of this timer. It is none while the timer is
    // disabled: another program can send one at any time.
    [[nodiscard]] bool IsTick(WPARAM id) const { return isEnabled_ && id == id_; }
    [[nodiscard]] std::chrono::milliseconds Interval() const { return interval_; }

  private:
    UINT_PTR id_;
    std::chrono::milliseconds interval_;
    HWND window_ = nullptr;
    bool isEnabled_ = false;
};

}  // namespace ambrio
