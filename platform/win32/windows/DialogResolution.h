#pragma once

#include "platform/win32/windows/GdiHandles.h"

namespace ambrio {

// Lets a dialog follow the resolution of the monitor that it is on: WM_DPICHANGED gives it a font
// of the new size, and itself and its controls the places and sizes that go with that.
class DialogResolution {
  public:
    DialogResolution() = default;

    // To be called once, when the dialog and its controls are made.
    void Attach(HWND dialog);

    // For WM_DPICHANGED: dots per inch, and where the system suggests to put the dialog.
    void Change(int dotsPerInch, const RECT& suggested);

  private:
    [[nodiscard]] int Scaled(int length, int dotsPerInch) const;
    void ScaleFont(int dotsPerInch);

    HWND dialog_ = nullptr;
    int dotsPerInch_ = 0;
    UniqueFont font_;  // once it is another than the one that the dialog was made with
};

}  // namespace ambrio
