#include "saver/animation/Contrast.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ambrio {
namespace {

constexpr int kLightComponent = 128;
constexpr int kLightSum = 384;

// The light of each component value. A table, because a plate is found by trial.
std::array<double, 256> MakeLinear() {
    std::array<double, 256> linear{};
    for (std::size_t component = 0; component < linear.size(); ++component) {
        const double value = static_cast<double>(component) / 255;
        linear[component] =
            value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    }
    return linear;
}

const std::array<double, 256> kLinear = MakeLinear();

double Luminance(Colour colour) {
    return 0.2126 * kLinear[colour.Red] + 0.7152 * kLinear[colour.Green] +
           0.0722 * kLinear[colour.Blue];
}

bool IsLight(std::uint8_t component) {
    return component >= kLightComponent;
}

bool IsLight(Colour colour) {
    return colour.Red + colour.Green + colour.Blue >= kLightSum;
}

// The colour `parts` of `all` on the way from one to the other.
Colour Mixed(Colour from, Colour to, int parts, int all) {
    const auto mix = [=](int a, int b) {
        return static_cast<std::uint8_t>(a + (b - a) * parts / all);
    };
    return {mix(from.Red, to.Red), mix(from.Green, to.Green), mix(from.Blue, to.Blue)};
}

constexpr Colour kBlack{};
constexpr Colour kWhite{255, 255, 255};
constexpr int kParts = 64;  // steps of a mixture

// Each component contrasts with the frame's, all within the side that the frame's colour as a whole
// asks for: what explains is tinted with the frame's counter-colour, and one plate serves both.
Colour CaptionColour(Colour frame, bool frameIsLight) {
    const auto contrasting = [=](std::uint8_t component) -> std::uint8_t {
        if (frameIsLight) {
            return IsLight(component) ? 0 : 80;
        }
        return IsLight(component) ? 190 : 255;
    };
    return {contrasting(frame.Red), contrasting(frame.Green), contrasting(frame.Blue)};
}

}  // namespace

double ContrastRatio(Colour one, Colour other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

LabelColours LabelColoursOn(Colour frame) {
    const bool light = IsLight(frame);
    LabelColours colours{light ? kBlack : kWhite, CaptionColour(frame, light), frame};
    const auto readable = [&] {
        return ContrastRatio(colours.Text, colours.Plate) >= kReadableContrast &&
               ContrastRatio(colours.Caption, colours.Plate) >= kReadableContrast;
    };
    for (int parts = 1; parts <= kParts && !readable(); ++parts) {
        colours.Plate = Mixed(frame, light ? kWhite : kBlack, parts, kParts);
    }
    return colours;
}

Colour BorderColourOn(Colour frame, Colour plate) {
    const Colour end = IsLight(frame) ? kBlack : kWhite;
    Colour border = frame;
    for (int parts = 1; parts <= kParts && ContrastRatio(border, plate) < kVisibleContrast;
         ++parts) {
        border = Mixed(frame, end, parts, kParts);
    }
    return border;
}

}  // namespace ambrio
