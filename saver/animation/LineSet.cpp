#include "saver/animation/LineSet.h"

#include <algorithm>
#include <cmath>

namespace ambrio {
namespace {

constexpr double kRasterUnits = 256;
constexpr double kThicknessTwips = 19;

// To the nearest. The runtime's own rounding costs more than the line's way to the buffer.
std::int32_t Units(float place, float scale) {
    const float units = place * scale;
    return static_cast<std::int32_t>(units < 0 ? units - 0.5F : units + 0.5F);
}

bool IsSamePlace(const Line& one, const Line& other) {
    return one.FromX == other.FromX && one.FromY == other.FromY && one.ToX == other.ToX &&
           one.ToY == other.ToY;
}

}  // namespace

std::int32_t LineSet::Thickness(double twipsPerPixel) {
    return static_cast<std::int32_t>(
        std::lround(kThicknessTwips * kRasterUnits / std::max(twipsPerPixel, 1.0)));
}

LineSet::LineSet(double twipsPerPixelX, double twipsPerPixelY)
    : scaleX_(static_cast<float>(kRasterUnits / twipsPerPixelX)),
      scaleY_(static_cast<float>(kRasterUnits / twipsPerPixelY)) {}

void LineSet::Change(const Line& line, Glow from, Glow to, LightBuffer& buffer) const {
    buffer.Change({Units(line.FromX, scaleX_), Units(line.FromY, scaleY_), Units(line.ToX, scaleX_),
                   Units(line.ToY, scaleY_)},
                  from, to);
}

void LineSet::Show(std::span<const Line> lines, LightBuffer& buffer) {
    constexpr Glow kDark{};
    auto old = shown_.begin();
    auto wanted = lines.begin();
    while (old != shown_.end() || wanted != lines.end()) {
        if (wanted == lines.end() || (old != shown_.end() && old->Key < wanted->Key)) {
            Change(*old, old->Light, kDark, buffer);
            ++old;
        } else if (old == shown_.end() || wanted->Key < old->Key) {
            Change(*wanted, kDark, wanted->Light, buffer);
            ++wanted;
        } else {
            if (!IsSamePlace(*old, *wanted)) {
                Change(*old, old->Light, kDark, buffer);
                Change(*wanted, kDark, wanted->Light, buffer);
            } else if (old->Light != wanted->Light) {
                Change(*old, old->Light, wanted->Light, buffer);
            }
            ++old;
            ++wanted;
        }
    }
    shown_.assign(lines.begin(), lines.end());
}

}  // namespace ambrio
