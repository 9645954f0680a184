#include "saver/animation/LineSet.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace ambrio {
namespace {

constexpr double kRasterUnits = 256;
constexpr double kThicknessTwips = 19;

auto Key(Colour colour) {
    return std::tuple(colour.Red, colour.Green, colour.Blue);
}

}  // namespace

std::int32_t LineSet::Thickness(double twipsPerPixel) {
    return static_cast<std::int32_t>(
        std::lround(kThicknessTwips * kRasterUnits / std::max(twipsPerPixel, 1.0)));
}

LineSet::LineSet(double twipsPerPixelX, double twipsPerPixelY)
    : scaleX_(static_cast<float>(kRasterUnits / twipsPerPixelX)),
      scaleY_(static_cast<float>(kRasterUnits / twipsPerPixelY)) {}

bool LineSet::Precedes(const Entry& one, const Entry& other) {
    if (one.Place != other.Place) {
        return one.Place < other.Place;
    }
    return Key(one.Light) < Key(other.Light);
}

LineSet::Entry LineSet::Rastered(const Line& line) const {
    const auto units = [](float place, float scale) {
        return static_cast<std::int32_t>(std::lround(place * scale));
    };
    return {{units(line.FromX, scaleX_), units(line.FromY, scaleY_), units(line.ToX, scaleX_),
             units(line.ToY, scaleY_)},
            line.Light};
}

void LineSet::Show(std::span<const Line> lines, LightBuffer& buffer) {
    constexpr Colour kDark{};
    next_.clear();
    for (const Line& line : lines) {
        next_.push_back(Rastered(line));
    }
    std::sort(next_.begin(), next_.end(), Precedes);

    auto old = shown_.begin();
    auto wanted = next_.begin();
    while (old != shown_.end() || wanted != next_.end()) {
        if (wanted == next_.end() || (old != shown_.end() && old->Place < wanted->Place)) {
            buffer.Change(old->Place, old->Light, kDark);
            ++old;
        } else if (old == shown_.end() || wanted->Place < old->Place) {
            buffer.Change(wanted->Place, kDark, wanted->Light);
            ++wanted;
        } else {
            if (old->Light != wanted->Light) {
                buffer.Change(old->Place, old->Light, wanted->Light);
            }
            ++old;
            ++wanted;
        }
    }
    shown_.swap(next_);
}

}  // namespace ambrio
