#include "saver/animation/StringFigures.h"

#include <algorithm>
#include <cmath>

namespace ambrio {
namespace {

constexpr double kStringsPerStep = 2.5;
constexpr double kSlotsPerAspect = 1.25;
constexpr std::size_t kMostSlots = 6;

constexpr double kStringDistance = 170;  // twips between neighbours at the rim, if all is even
constexpr double kFewestStrings = 96;
constexpr double kMostStrings = 300;

// The largest stretch of a figure, wider than high: what fills a usual screen.
constexpr double kWidestBack = 1.9;
constexpr double kWidestFront = 1.35;

}  // namespace

StringFigures::StringFigures(std::int32_t width, std::int32_t height, Random& random)
    : width_(std::max(width, 1)), height_(std::max(height, 1)), random_(random) {
    for (std::size_t slot = 0; slot < SlotCount(); ++slot) {
        Begin(slot);
        // Each at another point of its life, so that they do not end together.
        figures_.back().Figure.WeaveRounds(random_.Between(0.55, 0.75) +
                                           0.5 * static_cast<double>(slot % 3));
    }
    CollectLines();
}

std::size_t StringFigures::SlotCount() const {
    const double aspect = std::max(width_ / height_, height_ / width_);
    return std::min(static_cast<std::size_t>(std::lround(aspect * kSlotsPerAspect)) + 1,
                    kMostSlots);
}

void StringFigures::Resize(std::int32_t width, std::int32_t height) {
    width_ = std::max(width, 1);
    height_ = std::max(height, 1);
    std::erase_if(figures_, [this](const Placed& placed) { return placed.Slot >= SlotCount(); });
}

StringFigure::Design StringFigures::AnyDesign(std::size_t slot) {
    const bool isBack = slot == 0;
    const double reach = isBack ? 0.495 : random_.Between(0.27, 0.42);
    const double widest = isBack ? kWidestBack : kWidestFront;
    const double side = std::min(width_, height_);
    StringFigure::Design design;
    design.Across = reach * std::min(widest * side / width_, 1.0);
    design.Down = reach * std::min(widest * side / height_, 1.0);
    design.Strength = isBack ? 0.26 : 0.48;
    design.Pace = isBack ? 0.5 : 1;
    const double rim = 3.14159 * (design.Across * width_ + design.Down * height_);
    design.Strings = std::round(std::clamp(rim / kStringDistance, kFewestStrings, kMostStrings));
    return design;
}

void StringFigures::Begin(std::size_t slot) {
    figures_.push_back({slot, StringFigure(AnyDesign(slot), nextKey_, random_)});
    nextKey_ += StringFigure::kKeys;
}

bool StringFigures::IsBeingWoven(std::size_t slot) const {
    return std::any_of(figures_.begin(), figures_.end(), [slot](const Placed& placed) {
        return placed.Slot == slot && !placed.Figure.IsComplete();
    });
}

void StringFigures::Step(double pace) {
    for (std::size_t slot = 0; slot < SlotCount(); ++slot) {
        if (!IsBeingWoven(slot)) {
            Begin(slot);
        }
    }
    for (Placed& placed : figures_) {
        placed.Figure.Weave(kStringsPerStep * pace);
    }
    std::erase_if(figures_, [](const Placed& placed) { return placed.Figure.IsGone(); });
    CollectLines();
}

void StringFigures::CollectLines() {
    lines_.clear();
    for (const Placed& placed : figures_) {
        placed.Figure.AppendTo(lines_, width_, height_);
    }
}

}  // namespace ambrio
