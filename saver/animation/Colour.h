#pragma once

#include <cstdint>

namespace ambrio {

struct Colour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;

    bool operator==(const Colour&) const = default;
};

}  // namespace ambrio
