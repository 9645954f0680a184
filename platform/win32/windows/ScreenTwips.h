#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Twips per pixel, across and down.
struct ScreenTwips {
    double X = 15;
    double Y = 15;

    bool operator==(const ScreenTwips&) const = default;
};

// Of the screen, as the system told it when the user signed in.
[[nodiscard]] ScreenTwips ReadScreenTwips();

// The resolution of the monitor that a window is on; that of the screen where systems do not tell
// monitors apart (before Windows 10).
[[nodiscard]] int DotsPerInchOf(HWND window);
[[nodiscard]] ScreenTwips TwipsOf(HWND window);

}  // namespace ambrio
