#pragma once

#include "platform/win32/WindowsHeaders.h"
#include "saver/animation/Colour.h"

namespace ambrio {

// A colour as the system's drawing takes it.
[[nodiscard]] constexpr COLORREF SystemColour(Colour colour) {
    return RGB(colour.Red, colour.Green, colour.Blue);
}

}  // namespace ambrio
