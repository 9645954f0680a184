#pragma once

#include <cmath>

namespace ambrio {

// Lengths on forms are kept in twips, 1440 to the inch, as their layout was drawn.
inline constexpr double kTwipsPerInch = 1440;

// How many twips one pixel covers at a resolution in dots per inch: 15 at 96 dpi. Not always a
// whole number: 7.5 at 192 dpi.
[[nodiscard]] constexpr double TwipsPerPixel(int dotsPerInch) {
    return kTwipsPerInch / dotsPerInch;
}

// The nearest whole pixel.
[[nodiscard]] inline int PixelsFromTwips(double twips, double twipsPerPixel) {
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}

}  // namespace ambrio
