#pragma once

#include <cstdint>

namespace ambrio {

struct AnimationInputs;

// How fast the animation goes. While a run is going on, and where the display has no power-saving
// stage, always at full pace; else it slows down after the run and stands still once the time to
// the first stage has passed, so that the display may sleep and the processor rests.
class WindingDown {
  public:
    // To be asked once a step. From 1, full pace, to 0, standing still.
    [[nodiscard]] double Pace(const AnimationInputs& inputs);

  private:
    std::int64_t sinceRun_ = 0;  // milliseconds
};

}  // namespace ambrio
