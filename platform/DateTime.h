#pragma once

#include <cstdint>

namespace ambrio {

// A local date and time in whole seconds. The default is day zero of the runtime's calendar.
struct DateTime {
    int Year = 1899;
    int Month = 12;
    int Day = 30;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;

    friend bool operator==(const DateTime&, const DateTime&) = default;
};

// The number of days from 1899-12-30 to the date, its time left out; negative before.
[[nodiscard]] std::int32_t DayNumber(const DateTime& when);

// The date of a day number, at midnight.
[[nodiscard]] DateTime DateOfDayNumber(std::int32_t day);

// How many calendar-day boundaries lie between the two: 23:59 to 00:01 counts as one; negative
// when `to` is on an earlier day.
[[nodiscard]] std::int32_t DayDifference(const DateTime& from, const DateTime& to);

}  // namespace ambrio
