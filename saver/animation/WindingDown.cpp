#include "saver/animation/WindingDown.h"

#include <algorithm>

#include "saver/animation/FrameAnimation.h"

namespace ambrio {
namespace {

constexpr double kSlowingSeconds = 20;

}  // namespace

double WindingDown::Pace(const AnimationInputs& inputs) {
    if (!inputs.RunFinished) {
        sinceRun_ = 0;
        return 1;
    }
    sinceRun_ += inputs.Interval;
    if (!inputs.PowerSaveActive) {
        return 1;
    }
    const double seconds = static_cast<double>(sinceRun_) / 1000;
    return std::clamp((inputs.PowerSaveTimeout - seconds) / kSlowingSeconds, 0.0, 1.0);
}

}  // namespace ambrio
