#pragma once

#include <optional>
#include <string>

#include "platform/DateTime.h"

namespace ambrio {

// Dates as text, as the platform's automation writes and reads them with the user's locale. Builds
// that have no such platform get the en-US forms behind this same header.

// The short date and the long time, such as "11/21/2026 3:49:46 PM"; a time of exactly midnight is
// left out, as the platform does it.
[[nodiscard]] std::wstring GeneralDateText(const DateTime& when);

// Reads what the locale writes as a date; nothing when it cannot.
[[nodiscard]] std::optional<DateTime> DateFromText(const std::wstring& text);

}  // namespace ambrio
