#include "saver/animation/StringFigures.h"

#include <algorithm>
#include <cmath>

namespace ambrio {
namespace {

constexpr double kSlotsPerAspect = 1.25;
constexpr double kSmallestRadius = 0.34;  // of the form's smaller side
constexpr double kLargestRadius = 0.47;
constexpr double kStagger = 30;  // steps between the first figures
constexpr double kPause = 20;    // steps from a figure's last string to the next figure's first

}  // namespace

StringFigures::StringFigures(std::int32_t width, std::int32_t height, Random& random)
    : width_(std::max(width, 1)), height_(std::max(height, 1)), random_(random) {
    const std::size_t count = SlotCount();
    const std::size_t first = random_.Index(count);
    for (std::size_t slot = 0; slot < count; ++slot) {
        const std::size_t turn = (slot + count - first) % count;
        slots_.push_back({static_cast<double>(turn) * kStagger, {}});
    }
}

std::size_t StringFigures::SlotCount() const {
    const double aspect = width_ / height_;
    return static_cast<std::size_t>(
        std::clamp(std::round(std::max(aspect, 1 / aspect) * kSlotsPerAspect), 1.0, 6.0));
}

void StringFigures::Resize(std::int32_t width, std::int32_t height) {
    width_ = std::max(width, 1);
    height_ = std::max(height, 1);
    slots_.resize(SlotCount());
    for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
        for (Placed& placed : slots_[slot].Figures) {
            placed.Figure.MoveTo(PlaceOf(slot, placed.Where));
        }
    }
}

StringFigures::Spot StringFigures::AnySpot() {
    const double along = random_.Between(-0.12, 0.12);
    const double across = random_.Between(-0.08, 0.08);
    return {along, across, random_.Between(kSmallestRadius, kLargestRadius)};
}

StringFigure::Place StringFigures::PlaceOf(std::size_t slot, const Spot& spot) const {
    const double count = static_cast<double>(slots_.size());
    const double along = (static_cast<double>(slot) + 0.5 + spot.Along) / count;
    const double across = 0.5 + spot.Across;
    const double radius = spot.Radius * std::min(width_, height_);
    return width_ >= height_ ? StringFigure::Place{along * width_, across * height_, radius}
                             : StringFigure::Place{across * width_, along * height_, radius};
}

void StringFigures::Step(Colour frame, double pace) {
    lines_.clear();
    for (std::size_t index = 0; index < slots_.size(); ++index) {
        Slot& slot = slots_[index];
        const bool growing = !slot.Figures.empty() && !slot.Figures.back().Figure.IsComplete();
        if (!growing) {
            slot.Wait -= pace;
        }
        if (slot.Wait <= 0 && !growing) {
            const Spot spot = AnySpot();
            slot.Figures.push_back({spot, StringFigure(PlaceOf(index, spot), random_)});
            slot.Wait = kPause;
        }
        for (Placed& placed : slot.Figures) {
            placed.Figure.Step(frame, pace);
            placed.Figure.AppendTo(lines_);
        }
        std::erase_if(slot.Figures, [](const Placed& placed) { return placed.Figure.IsGone(); });
    }
}

}  // namespace ambrio
