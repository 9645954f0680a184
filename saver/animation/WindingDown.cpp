#include "saver/animation/WindingDown.h"

#include <algorithm>

#include "saver/animation/FrameAnimation.h"

namespace ambrio {
namespace {

constexpr double kSlowingSeconds = 20;
constexpr std::int64_t kBetweenMoves = 1000;  // milliseconds, at rest
constexpr double kMove = 1.5;                 // every string is replaced within a minute

}  // namespace

double WindingDown::Pace(const AnimationInputs& inputs) {
    if (!inputs.RunFinished) {
        sinceRun_ = 0;
        isAtRest_ = false;
        return 1;
    }
    sinceRun_ += inputs.Interval;
    if (!inputs.PowerSaveActive) {
        return 1;
    }
    const double seconds = static_cast<double>(sinceRun_) / 1000;
    isAtRest_ = seconds >= inputs.PowerSaveTimeout;
    if (isAtRest_) {
        return sinceRun_ % kBetweenMoves < inputs.Interval ? kMove : 0;
    }
    return std::min((inputs.PowerSaveTimeout - seconds) / kSlowingSeconds, 1.0);
}

}  // namespace ambrio
