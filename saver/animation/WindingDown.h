#pragma once

#include <cstdint>

namespace ambrio {

struct AnimationInputs;

// How fast the animation goes. While a run is going on, and where the display has no power-saving
// stage, always at full pace; else it slows down after the run and rests once the time to the first
// stage has passed, so that the display may sleep and the processor too. At rest it moves on once a
// second: should the display stay on, nothing burns into it.
class WindingDown {
  public:
    // To be asked once a step. From 1, full pace, to 0, standing still; at rest 0 but for one step
    // a second.
    [[nodiscard]] double Pace(const AnimationInputs& inputs);
    [[nodiscard]] bool IsAtRest() const { return isAtRest_; }

  private:
    bool isAtRest_ = false;
    std::int64_t sinceRun_ = 0;  // milliseconds
};

}  // namespace ambrio
