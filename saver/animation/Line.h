#pragma once

#include <cstdint>

namespace ambrio {

// How much light of each colour of the palette a line gives.
struct Glow {
    std::uint8_t First = 0;
    std::uint8_t Second = 0;

    bool operator==(const Glow&) const = default;
};

// A thin straight line of light on the dark form. Ends are in twips on the form and may lie
// outside it.
struct Line {
    float FromX = 0;
    float FromY = 0;
    float ToX = 0;
    float ToY = 0;
    Glow Light;
    std::uint32_t Key = 0;  // tells a line from all others that are shown with it

    bool operator==(const Line&) const = default;
};

}  // namespace ambrio
