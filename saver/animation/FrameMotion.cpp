#include "saver/animation/FrameMotion.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ambrio {
namespace {

// A form of 1080 pixels is crossed in about a minute; on a small one the frame slows down, but
// still moves visibly.
constexpr double kSlowest = 10;  // twips per step
constexpr double kFastest = 32;
constexpr double kStepsToCross = 450;

constexpr double kSwayStep = 2 * std::numbers::pi / 700;  // a sway takes 70 seconds
constexpr double kSwayAngle = 0.0015;                     // the largest turn in one step

}  // namespace

FrameMotion::FrameMotion(const AnimatedFrame& frame, std::int16_t pixelTwipsX,
                         std::int16_t pixelTwipsY, Random& random) {
    const double smallerSide = std::min(frame.ParentScaleWidth(), frame.ParentScaleHeight());
    const double speed = std::clamp(smallerSide / kStepsToCross, kSlowest, kFastest);
    // Neither nearly level nor nearly upright, which would look like a fault.
    const double angle = random.Between(0.45, 0.95);
    x_ = {static_cast<double>(frame.Left()), speed * std::cos(angle) * random.Sign(), pixelTwipsX};
    y_ = {static_cast<double>(frame.Top()), speed * std::sin(angle) * random.Sign(), pixelTwipsY};
    sway_ = random.Between(0, 2 * std::numbers::pi);
}

std::int32_t FrameMotion::Axis::Step(double pace, std::int32_t room) {
    const double lowest = std::min(room, 0);
    const double highest = std::max(room, 0);
    // Brings it back into a form that has shrunk.
    Position = std::clamp(Position, lowest, highest) + Speed * pace;
    if (Position < lowest) {
        Position = 2 * lowest - Position;
        Speed = std::fabs(Speed);
    } else if (Position > highest) {
        Position = 2 * highest - Position;
        Speed = -std::fabs(Speed);
    }
    const double wholePixels = std::round(Position / PixelTwips) * PixelTwips;
    return static_cast<std::int32_t>(std::clamp(wholePixels, lowest, highest));
}

void FrameMotion::Sway(double pace) {
    sway_ = std::fmod(sway_ + kSwayStep * pace, 2 * std::numbers::pi);
    const double angle = kSwayAngle * std::sin(sway_) * pace;
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const double across = x_.Speed * cosine - y_.Speed * sine;
    y_.Speed = x_.Speed * sine + y_.Speed * cosine;
    x_.Speed = across;
}

void FrameMotion::Step(AnimatedFrame& frame, double pace) {
    Sway(pace);
    const std::int32_t left = x_.Step(pace, frame.ParentScaleWidth() - frame.Width());
    const std::int32_t top = y_.Step(pace, frame.ParentScaleHeight() - frame.Height());
    if (left != frame.Left() || top != frame.Top()) {
        frame.Move(left, top);
    }
}

}  // namespace ambrio
