#include "platform/win32/system/Win32Clock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace ambrio {
namespace {

TEST(Win32Clock, TellsTheLocalTime) {
    const auto local = [] {
        const std::time_t now = std::time(nullptr);
        const std::tm parts = *std::localtime(&now);
        return DateTime{parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
                        parts.tm_hour,        parts.tm_min,     parts.tm_sec};
    };
    Win32Clock clock;
    // The second may change between the readings; then one of them fits.
    const DateTime before = local();
    const DateTime now = clock.Now();
    const DateTime after = local();
    EXPECT_TRUE(now == before || now == after);
}

}  // namespace
}  // namespace ambrio
