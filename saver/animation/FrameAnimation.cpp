#include "saver/animation/FrameAnimation.h"

#include <algorithm>
#include <optional>

#include "saver/animation/ColourWalk.h"
#include "saver/animation/Contrast.h"
#include "saver/animation/FrameMotion.h"
#include "saver/animation/Random.h"
#include "saver/animation/StringFigures.h"
#include "saver/animation/WindingDown.h"

namespace ambrio {
namespace {

// The colour walks twice a second: more often nobody sees, and every change repaints the frame
// with all its labels.
constexpr double kStepsPerColour = 5;

Area SeenOf(const AnimatedFrame& frame) {
    Area seen;
    for (const Area& area : frame.VisibleAreas()) {
        seen.Right = std::max(seen.Right, area.Right);
        seen.Bottom = std::max(seen.Bottom, area.Bottom);
    }
    return seen;
}

}  // namespace

struct FrameAnimation::State {
    State(std::uint32_t seed, const AnimatedFrame& frame, const AnimationInputs& inputs)
        : Numbers(seed),
          Colours(ColourWalk::StartAnywhere(Numbers)),
          Motion(frame, inputs.PixelTwipsX, inputs.PixelTwipsY, Numbers),
          Seen(SeenOf(frame)),
          Figures(Seen.Right, Seen.Bottom, Numbers) {}

    void StepColour(AnimatedFrame& frame, double pace);
    bool FollowForm(const AnimatedFrame& frame);

    Random Numbers;
    ColourWalk Colours;
    FrameMotion Motion;
    Area Seen;  // from the form's corner to the end of what can be seen
    StringFigures Figures;
    WindingDown Winding;
    std::optional<Colour> FrameColour;
    std::optional<LabelColours> Labels;
    double SinceColour = kStepsPerColour;
};

FrameAnimation::FrameAnimation(std::uint32_t seed) : seed_(seed) {}

FrameAnimation::~FrameAnimation() = default;

void FrameAnimation::State::StepColour(AnimatedFrame& frame, double pace) {
    SinceColour += pace;
    if (SinceColour < kStepsPerColour) {
        return;
    }
    SinceColour -= kStepsPerColour;
    Colours.Step();
    const Colour colour = Colours.Current();
    if (FrameColour != colour) {
        FrameColour = colour;
        frame.SetBackColor(colour);
    }
    const LabelColours labels = LabelColoursOn(colour);
    if (Labels != labels) {
        Labels = labels;
        frame.SetLabelColours(labels);
    }
}

// True when the form has become another size.
bool FrameAnimation::State::FollowForm(const AnimatedFrame& frame) {
    const Area seen = SeenOf(frame);
    if (seen == Seen) {
        return false;
    }
    Seen = seen;
    Figures.Resize(seen.Right, seen.Bottom);
    return true;
}

void FrameAnimation::Step(AnimatedFrame& frame, const AnimationInputs& inputs) {
    if (!state_) {
        state_ = std::make_unique<State>(seed_, frame, inputs);
    }
    const double pace = state_->Winding.Pace(inputs);
    state_->Motion.Step(frame, pace);
    const bool isResized = state_->FollowForm(frame);
    if (pace == 0 && !isResized) {
        return;
    }
    state_->StepColour(frame, pace);
    state_->Figures.Step(*state_->FrameColour, pace);
    frame.DrawLines(state_->Figures.Lines());
}

}  // namespace ambrio
