#include "saver/animation/ColourFamily.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ambrio {
namespace {

constexpr double kCircle = 6;
constexpr double kReach = 0.72;        // from the frame's hue to either side: 43 degrees
constexpr double kLongestStep = 0.05;  // 3 degrees
constexpr double kPalest = 0.14;       // the least share of any component
constexpr double kDarkest = 0.36;      // the least brightness, which lifts the blues

// `hue`, a little below or above the circle, on it.
double OnCircle(double hue) {
    if (hue < 0) {
        return hue + kCircle;
    }
    return hue < kCircle ? hue : hue - kCircle;
}

// 0 for a grey.
double HueOf(Colour colour) {
    const int highest = std::max({colour.Red, colour.Green, colour.Blue});
    const int spread = highest - std::min({colour.Red, colour.Green, colour.Blue});
    if (spread == 0) {
        return 0;
    }
    const double range = spread;
    if (highest == colour.Red) {
        return OnCircle((colour.Green - colour.Blue) / range);
    }
    if (highest == colour.Green) {
        return (colour.Blue - colour.Red) / range + 2;
    }
    return (colour.Red - colour.Green) / range + 4;
}

// How much of a component a hue has when the component's own hue is `centre`.
double Share(double hue, double centre) {
    const double way = std::abs(hue - centre);
    return std::clamp(2 - std::min(way, kCircle - way), 0.0, 1.0);
}

Colour Rich(double hue) {
    const double red = Share(hue, 0);
    const double green = Share(hue, 2);
    const double blue = Share(hue, 4);
    const double brightness = 0.3 * red + 0.6 * green + 0.1 * blue;
    const double least = std::max(kPalest, (kDarkest - brightness) / (1 - brightness));
    const auto component = [=](double share) {
        return static_cast<std::uint8_t>(std::lround(255 * (least + (1 - least) * share)));
    };
    return {component(red), component(green), component(blue)};
}

}  // namespace

ColourFamily::ColourFamily(Colour frame) : hue_(HueOf(frame)) {}

void ColourFamily::Follow(Colour frame) {
    double way = HueOf(frame) - hue_;
    if (std::abs(way) > kCircle / 2) {
        way += way > 0 ? -kCircle : kCircle;
    }
    hue_ = OnCircle(hue_ + std::clamp(way, -kLongestStep, kLongestStep));
}

Palette ColourFamily::Current() const {
    return {Rich(OnCircle(hue_ - kReach)), Rich(OnCircle(hue_ + kReach))};
}

}  // namespace ambrio
