#include "platform/DateTime.h"

#include <chrono>

namespace ambrio {
namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kDayZero{year{1899} / month{12} / day{30}};

}  // namespace

std::int32_t DayNumber(const DateTime& when) {
    const year_month_day date{year{when.Year}, month{static_cast<unsigned>(when.Month)},
                              day{static_cast<unsigned>(when.Day)}};
    return static_cast<std::int32_t>((sys_days{date} - kDayZero).count());
}

DateTime DateOfDayNumber(std::int32_t number) {
    const year_month_day date{kDayZero + days{number}};
    DateTime when;
    when.Year = static_cast<int>(date.year());
    when.Month = static_cast<int>(static_cast<unsigned>(date.month()));
    when.Day = static_cast<int>(static_cast<unsigned>(date.day()));
    return when;
}

std::int32_t DayDifference(const DateTime& from, const DateTime& to) {
    return DayNumber(to) - DayNumber(from);
}

}  // namespace ambrio
