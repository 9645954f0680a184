#pragma once

#include <string>
#include <vector>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The tooltips of one dialog. Their window belongs to the dialog's and goes with it.
class Tooltips {
  public:
    // Nothing is made before the first Set. `longestLine` is in pixels; longer texts are wrapped.
    Tooltips() = default;

    // Gives the control a text, or another text than it has, which is shown also while the control
    // is disabled. A combo box's edit part gets the same.
    void Set(HWND control, const std::wstring& text, int longestLine);

    // To be called when controls have been moved.
    void Follow();

    // The tooltip control, to be asked for its texts; null before the first Set.
    [[nodiscard]] HWND Handle() const { return handle_; }

  private:
    void Make(HWND dialog, int longestLine);
    void SetOne(HWND control, const std::wstring& text);
    void SetPlace(HWND control, const std::wstring& text);

    HWND handle_ = nullptr;
    std::vector<HWND> controls_;
};

// The text that a tooltip control shows over a control; empty when it shows none.
[[nodiscard]] std::wstring TooltipOf(HWND tooltips, HWND control);

}  // namespace ambrio
