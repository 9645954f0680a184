#include "saver/animation/ColourWalk.h"

#include <cmath>

namespace ambrio {
namespace {

constexpr double kLowest = 0;
constexpr double kHighest = 255;

std::uint8_t Rounded(double value) {
    return static_cast<std::uint8_t>(std::lround(value));
}

}  // namespace

ColourWalk::ColourWalk(const std::array<Component, 3>& redGreenBlue) : components_(redGreenBlue) {}

ColourWalk ColourWalk::StartAnywhere(Random& random) {
    std::array<Component, 3> components{};
    for (Component& component : components) {
        component.Value = random.Between(30, 190);
        component.Step = random.Between(0.8, 2.4) * random.Sign();
    }
    return ColourWalk(components);
}

void ColourWalk::Step() {
    for (Component& component : components_) {
        component.Value += component.Step;
        if (component.Value < kLowest || component.Value > kHighest) {
            component.Step = -component.Step;
            component.Value += component.Step;
        }
    }
}

Colour ColourWalk::Current() const {
    return {Rounded(components_[0].Value), Rounded(components_[1].Value),
            Rounded(components_[2].Value)};
}

}  // namespace ambrio
