#include "platform/Rounding.h"

#include <cmath>
#include <limits>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

// The nearest whole number, a half to the even neighbour whatever the processor is set to.
double Rounded(double value) {
    const double below = std::floor(value);
    const double part = value - below;
    const bool up = part > 0.5 || (part == 0.5 && std::fmod(below, 2) != 0);
    return up ? below + 1 : below;
}

template <typename Number>
Number RoundTo(double value) {
    const double rounded = Rounded(value);
    // Not a number fails this test too.
    if (!(rounded >= std::numeric_limits<Number>::min() &&
          rounded <= std::numeric_limits<Number>::max())) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<Number>(rounded);
}

}  // namespace

std::int32_t RoundToInt32(double value) {
    return RoundTo<std::int32_t>(value);
}
std::int16_t RoundToInt16(double value) {
    return RoundTo<std::int16_t>(value);
}

}  // namespace ambrio
