#include "saver/animation/FrameMotion.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <vector>

namespace ambrio {
namespace {

// Slow enough to be read: a form of 1080 pixels is crossed in a minute and a half; on a small one
// the frame slows down, but still moves visibly.
constexpr double kSlowest = 10;  // twips per step
constexpr double kFastest = 22;
constexpr double kStepsToCross = 640;

constexpr double kSwayStep = 2 * std::numbers::pi / 700;  // a sway takes 70 seconds
constexpr double kSwayAngle = 0.0015;                     // the largest turn in one step

// From the first to the last column that any area has.
Stretch Columns(std::span<const Area> areas) {
    Stretch columns{areas.front().Left, areas.front().Right};
    for (const Area& area : areas) {
        columns = {std::min(columns.From, area.Left), std::max(columns.To, area.Right)};
    }
    return columns;
}

// Where a frame that takes these columns may be moved to with its rows. Where it does not fit, all
// columns that there are: a frame larger than its form, or one that a monitor was taken from.
Stretch FreeFor(const Stretch& columns, const Stretch& rows, std::span<const Area> areas) {
    const Stretch all = Columns(Turned(areas));
    const Stretch seen{std::max(rows.From, all.From), std::min(rows.To, all.To)};
    const std::int32_t size = columns.To - columns.From;
    const Stretch free = FreeAcross(areas, seen, columns.From + size / 2);
    return free.To - free.From >= size ? free : Columns(areas);
}

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

std::int32_t FrameMotion::Axis::Step(double pace, const Stretch& free, std::int32_t size) {
    const std::int32_t room = free.To - free.From - size;
    const double lowest = free.From + std::min(room, 0);
    const double highest = free.From + std::max(room, 0);
    // Brings it back into a form that has shrunk, or onto a monitor when another has gone.
    Position = std::clamp(Position, lowest, highest) + Speed * pace;
    if (Position < lowest) {
        Position = 2 * lowest - Position;
        Speed = std::fabs(Speed);
    } else if (Position > highest) {
        Position = 2 * highest - Position;
        Speed = -std::fabs(Speed);
    }
    // Not to whole pixels: how many twips a pixel has is no whole number everywhere, and the panel
    // finds the nearest pixel by itself. Clamped, as there may be less room than a step is long.
    return static_cast<std::int32_t>(std::lround(std::clamp(Position, lowest, highest)));
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
    const std::vector<Area> areas = frame.VisibleAreas();
    const Stretch rows{frame.Top(), frame.Top() + frame.Height()};
    const std::int32_t left = x_.Step(
        pace, FreeFor({frame.Left(), frame.Left() + frame.Width()}, rows, areas), frame.Width());
    const Stretch columns{left, left + frame.Width()};
    const std::int32_t top = y_.Step(pace, FreeFor(rows, columns, Turned(areas)), frame.Height());
    if (x_.IsSeen(left - frame.Left()) || y_.IsSeen(top - frame.Top())) {
        frame.Move(left, top);
    }
}

}  // namespace ambrio
