#include "platform/DateTime.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

DateTime At(int year, int month, int day, int hour = 0, int minute = 0) {
    return {year, month, day, hour, minute, 0};
}

TEST(DateTime, DayZeroIsTheLastButOneOf1899) {
    EXPECT_EQ(0, DayNumber(DateTime{}));
    EXPECT_EQ(2, DayNumber(At(1900, 1, 1)));
    EXPECT_EQ(46347, DayNumber(At(2026, 11, 21)));
    EXPECT_EQ(At(2026, 11, 21), DateOfDayNumber(46347));
}

TEST(DateTime, TwoMinutesAroundMidnightAreOneDayApart) {
    EXPECT_EQ(1, DayDifference(At(2026, 11, 21, 23, 59), At(2026, 11, 22, 0, 1)));
    EXPECT_EQ(0, DayDifference(At(2026, 11, 21, 0, 1), At(2026, 11, 21, 23, 59)));
    EXPECT_EQ(-1, DayDifference(At(2026, 11, 22), At(2026, 11, 21)));
}

}  // namespace
}  // namespace ambrio
