#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/DateTime.h"

namespace ambrio {

// Conversions between values and text as the platform's automation does them, with the user's
// locale. Builds that have no such platform get the en-US forms behind this same header.

// The short date and the long time, such as "11/21/2026 3:49:46 PM"; a time of exactly midnight is
// left out, as the platform does it.
[[nodiscard]] std::wstring GeneralDateText(const DateTime& when);

// Reads what the locale writes as a date; nothing when it cannot.
[[nodiscard]] std::optional<DateTime> DateFromText(const std::wstring& text);

// Reads a Boolean text or a number (0 is false). Throws RuntimeError TypeMismatch for anything
// else, the empty text included.
[[nodiscard]] bool BooleanFromText(const std::wstring& text);

// "True" or "False", in every locale.
[[nodiscard]] std::wstring BooleanText(bool value);

// Rounded to the nearest whole number, a half to the even neighbour. Throws RuntimeError Overflow
// outside the range.
[[nodiscard]] std::int32_t RoundToInt32(double value);
[[nodiscard]] std::int16_t RoundToInt16(double value);

}  // namespace ambrio
