#pragma once

#include "saver/animation/AnimatedFrame.h"
#include "saver/animation/Colour.h"

namespace ambrio {

// From 1 (the same) to 21 (black on white), as accessibility guidelines measure it.
[[nodiscard]] double ContrastRatio(Colour one, Colour other);

// What a reader across the room needs.
constexpr double kReadableContrast = 7;

// The colours of the labels on a frame of this colour. A component of 128 or more is light, and so
// is a colour whose components sum up to 384 or more; text is dark on light and light on dark. The
// plate is the frame's colour, mixed with as much black or white as both texts need to reach
// kReadableContrast.
[[nodiscard]] LabelColours LabelColoursOn(Colour frame);

}  // namespace ambrio
