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

// What an edge between two areas needs to be seen.
constexpr double kVisibleContrast = 2;

// The colour of the border round a plate that lies on a frame of this colour: the frame's own,
// mixed with as much white (black, where the frame is light) as it needs to stand out from the
// plate by kVisibleContrast. The plate is that of LabelColoursOn.
[[nodiscard]] Colour BorderColourOn(Colour frame, Colour plate);

}  // namespace ambrio
