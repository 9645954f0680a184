#pragma once

#include "saver/animation/Colour.h"

namespace ambrio {

// The colour of a line that goes with the frame's colour. `place` (-1 to 1) walks from one
// neighbouring hue to the other. Always bright and never quite grey, whatever the frame's colour
// is: lines have to stand out from a black ground. `strength` (0 to 1) dims it.
[[nodiscard]] Colour LineColour(Colour frame, double place, double strength);

}  // namespace ambrio
