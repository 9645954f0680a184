#pragma once

#include "saver/animation/Colour.h"

namespace ambrio {

// The colour of a line that goes with the frame's colour. `place` (-1 to 1) walks from one
// neighbouring hue to the other. Always bright and never quite grey, whatever the frame's colour
// is: lines have to stand out from a black ground.
[[nodiscard]] Colour LineColour(Colour frame, double place);

// `strength` goes from 0, black, to 1, the colour itself.
[[nodiscard]] Colour Dimmed(Colour colour, double strength);

}  // namespace ambrio
