#include "platform/DecimalText.h"

#include <array>
#include <charconv>
#include <limits>

namespace ambrio {

std::wstring DecimalText(long long number) {
    // digits10 counts one digit too few, and there is the sign.
    std::array<char, std::numeric_limits<long long>::digits10 + 2> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return {digits.data(), written.ptr};
}

}  // namespace ambrio
