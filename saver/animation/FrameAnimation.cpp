#include "saver/animation/FrameAnimation.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "saver/animation/ColourFamily.h"
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
          Figures(Seen.Right, Seen.Bottom, Numbers),
          Family(Colours.Current()) {}

    void StepColour(AnimatedFrame& frame, double pace);
    void Advance(AnimatedFrame& frame);
    bool FollowForm(const AnimatedFrame& frame);

    Random Numbers;
    ColourWalk Colours;
    FrameMotion Motion;
    Area Seen;  // from the form's corner to the end of what can be seen
    StringFigures Figures;
    ColourFamily Family;
    WindingDown Winding;
    double Pace = 0;   // of the last step
    double Ahead = 0;  // the share of the way to the next step that is drawn already
    double Owed = 0;   // the part of the last step's way that is not drawn yet
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
    Family.Follow(colour);
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

// Goes the way that is owed with the figures and the frame.
void FrameAnimation::State::Advance(AnimatedFrame& frame) {
    const double way = std::exchange(Owed, 0);
    Motion.Step(frame, way);
    Figures.Step(way);
    frame.DrawLines(Figures.Lines(), Family.Current());
}

void FrameAnimation::Step(AnimatedFrame& frame, const AnimationInputs& inputs) {
    if (!state_) {
        state_ = std::make_unique<State>(seed_, frame, inputs);
    }
    State& state = *state_;
    state.Pace = state.Winding.Pace(inputs);
    const bool isResized = state.FollowForm(frame);
    if (state.Pace > 0 || isResized) {
        state.StepColour(frame, state.Pace);
        state.Owed += state.Pace * (1 - state.Ahead);
        if (state.Ahead == 0 || isResized || IsAtRest()) {
            state.Advance(frame);
        }
    } else {
        state.Motion.Step(frame, 0);  // a form that shows less of it, even so
    }
    state.Ahead = 0;
}

void FrameAnimation::Glide(AnimatedFrame& frame, double share) {
    if (!state_ || IsAtRest()) {
        return;
    }
    const double way = std::min(share, 1.0) - state_->Ahead;
    if (way > 0) {
        state_->Ahead += way;
        state_->Owed += state_->Pace * way;
        state_->Advance(frame);
    }
}

bool FrameAnimation::IsAtRest() const {
    return state_ && state_->Winding.IsAtRest();
}

}  // namespace ambrio
