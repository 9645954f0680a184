#pragma once

#include <cstdint>
#include <cstdlib>

#include "saver/animation/AnimatedFrame.h"
#include "saver/animation/Random.h"

namespace ambrio {

// Lets the frame drift over its form in a slightly swaying line and turn back at the edges of what
// can be seen of it, so that it is always seen whole. A frame larger than its form drifts as far as
// it can without leaving a part of the form uncovered, so that every part of the frame is seen in
// time.
class FrameMotion {
  public:
    // Starts where the frame is.
    FrameMotion(const AnimatedFrame& frame, std::int16_t pixelTwipsX, std::int16_t pixelTwipsY,
                Random& random);

    // Moves the frame by one step, if that comes to a pixel or more since it was moved last. `pace`
    // is 1 for the usual speed and 0 for standing still; even then the frame is brought back into a
    // form that has become smaller.
    void Step(AnimatedFrame& frame, double pace);

  private:
    struct Axis {
        double Position;  // twips
        double Speed;     // twips per step
        std::int32_t PixelTwips;
        [[nodiscard]] std::int32_t Step(double pace, const Stretch& free, std::int32_t size);
        [[nodiscard]] bool IsSeen(std::int32_t way) const { return std::abs(way) >= PixelTwips; }
    };

    void Sway(double pace);

    Axis x_;
    Axis y_;
    double sway_;
};

}  // namespace ambrio
