#pragma once

#include <array>

#include "saver/animation/Colour.h"
#include "saver/animation/Random.h"

namespace ambrio {

// The colour of the frame: red, green and blue, each walking up and down between 0 and 255 at its
// own speed.
class ColourWalk {
  public:
    struct Component {
        double Value;  // 0 to 255
        double Step;
    };

    explicit ColourWalk(const std::array<Component, 3>& redGreenBlue);
    // Somewhere in the middle of the colours, so that the first picture is neither black nor white.
    static ColourWalk StartAnywhere(Random& random);

    // A component that would leave its range turns round and steps back.
    void Step();
    // The components, each rounded to the nearest whole number.
    [[nodiscard]] Colour Current() const;

  private:
    std::array<Component, 3> components_;
};

}  // namespace ambrio
