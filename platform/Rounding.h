#pragma once

#include <cstdint>

namespace ambrio {

// Rounded to the nearest whole number, a half to the even neighbour. Both throw RuntimeError
// Overflow outside the range.
[[nodiscard]] std::int32_t RoundToInt32(double value);
[[nodiscard]] std::int16_t RoundToInt16(double value);

}  // namespace ambrio
