#pragma once

#include <string>

namespace ambrio {

// The number in decimal digits, with a minus sign before it when it is negative. The library's
// to_wstring gives the same text, but brings the formatting of every kind of number with it.
[[nodiscard]] std::wstring DecimalText(long long number);

}  // namespace ambrio
