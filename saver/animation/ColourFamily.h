#pragma once

#include "saver/animation/Colour.h"

namespace ambrio {

// The two colours that all lines of a picture are mixed from.
struct Palette {
    Colour First;
    Colour Second;

    bool operator==(const Palette&) const = default;
};

// The palette that goes with the frame's colour: its hue to either side, always bright and
// saturated, as lines have to stand out from a black ground. The hue of a frame that comes close to
// grey leaps; this one follows it by small steps, the shorter way round.
class ColourFamily {
  public:
    explicit ColourFamily(Colour frame);

    void Follow(Colour frame);
    [[nodiscard]] Palette Current() const;

  private:
    double hue_;  // in sixths of the colour circle, 0 to 6
};

}  // namespace ambrio
