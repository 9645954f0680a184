#include "platform/DecimalText.h"

#include <gtest/gtest.h>

#include <limits>

namespace ambrio {
namespace {

TEST(DecimalText, WritesEveryNumber) {
    EXPECT_EQ(L"0", DecimalText(0));
    EXPECT_EQ(L"7", DecimalText(7));
    EXPECT_EQ(L"-7", DecimalText(-7));
    EXPECT_EQ(L"1048576", DecimalText(1048576));
    EXPECT_EQ(L"9223372036854775807", DecimalText(std::numeric_limits<long long>::max()));
    EXPECT_EQ(L"-9223372036854775808", DecimalText(std::numeric_limits<long long>::min()));
}

}  // namespace
}  // namespace ambrio
