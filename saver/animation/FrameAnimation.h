#pragma once

#include <cstdint>
#include <memory>

#include "saver/animation/AnimatedFrame.h"

namespace ambrio {

// What one step reads of the world.
struct AnimationInputs {
    bool RunFinished = false;
    bool PowerSaveActive = false;
    std::int32_t PowerSaveTimeout = 0;  // seconds from the end of the run to standing still
    std::int32_t Interval = 100;        // milliseconds from step to step
    std::int16_t PixelTwipsX = 15;
    std::int16_t PixelTwipsY = 15;
};

// The frame animation: one routine for the full-screen form and the preview. A step moves the
// frame, lets its colour walk and draws the string figures behind it. Under power saving it winds
// down after the run and then rests: it moves on once a second, and costs nothing in between.
class FrameAnimation {
  public:
    // With the same seed the same steps on the same form look the same.
    explicit FrameAnimation(std::uint32_t seed);
    ~FrameAnimation();
    FrameAnimation(const FrameAnimation&) = delete;
    FrameAnimation& operator=(const FrameAnimation&) = delete;

    // The first call sets everything up. When the form, or what can be seen of it, becomes another
    // size, the next call moves everything to it, even while it stands still.
    void Step(AnimatedFrame& frame, const AnimationInputs& inputs);

    // Draws a picture between two steps, so that movement is smooth: `share` (0 to 1) of the way
    // from the last step to the next one is done. As long as such pictures are drawn, a step draws
    // none of its own: the next of them shows it. Does nothing before the first step and at rest.
    void Glide(AnimatedFrame& frame, double share);

    // Whether it has wound down, so that there is nothing to draw between steps.
    [[nodiscard]] bool IsAtRest() const;

  private:
    struct State;

    std::uint32_t seed_;
    std::unique_ptr<State> state_;
};

}  // namespace ambrio
