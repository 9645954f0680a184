#pragma once

#include "platform/win32/system/SystemLibrary.h"

namespace ambrio {

// Draws check boxes as the user's visual style has them.
class CheckBoxTheme {
  public:
    CheckBoxTheme();

    // False when no style is in use; nothing is drawn then. `window` is the one that is drawn in.
    [[nodiscard]] bool Draw(HWND window, HDC dc, const RECT& box, bool ticked) const;

  private:
    SystemLibrary library_;
    decltype(&OpenThemeData) open_;
    decltype(&CloseThemeData) close_;
    decltype(&DrawThemeBackground) draw_;
};

}  // namespace ambrio
