#include "saver/animation/ColourFamily.h"

#include <algorithm>
#include <cmath>

namespace ambrio {
namespace {

constexpr double kHueReach = 30;  // degrees to either side
constexpr double kPalest = 0.38;
constexpr double kRichest = 0.78;

// In sixths of the colour circle, 0 to 6; 0 for a grey.
double Hue(Colour colour, int highest, int spread) {
    if (spread == 0) {
        return 0;
    }
    const double range = spread;
    if (highest == colour.Red) {
        return std::fmod((colour.Green - colour.Blue) / range + 6, 6);
    }
    if (highest == colour.Green) {
        return (colour.Blue - colour.Red) / range + 2;
    }
    return (colour.Red - colour.Green) / range + 4;
}

// How much of a component a hue has when the component's own hue is `centre`.
double Share(double hue, double centre) {
    const double apart = std::fabs(std::remainder(hue - centre, 6));
    return std::clamp(2 - apart, 0.0, 1.0);
}

}  // namespace

Colour LineColour(Colour frame, double place) {
    const int highest = std::max({frame.Red, frame.Green, frame.Blue});
    const int spread = highest - std::min({frame.Red, frame.Green, frame.Blue});
    const double hue = Hue(frame, highest, spread) + place * kHueReach / 60;
    const double richness = std::clamp(spread / std::max(highest * 1.0, 1.0), kPalest, kRichest);
    const auto component = [=](double centre) {
        const double value = 1 - richness * (1 - Share(hue, centre));
        return static_cast<std::uint8_t>(std::lround(255 * value));
    };
    return {component(0), component(2), component(4)};
}

Colour Dimmed(Colour colour, double strength) {
    const auto parts = static_cast<int>(std::lround(strength * 256));
    const auto dimmed = [=](std::uint8_t component) {
        return static_cast<std::uint8_t>((component * parts + 128) / 256);
    };
    return {dimmed(colour.Red), dimmed(colour.Green), dimmed(colour.Blue)};
}

}  // namespace ambrio
