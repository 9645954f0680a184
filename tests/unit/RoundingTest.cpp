#include <gtest/gtest.h>

#include <limits>

#include "platform/Rounding.h"
#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

TEST(Rounding, GoesToTheNearestWholeNumberAndAHalfToTheEvenOne) {
    const struct {
        double Value;
        std::int32_t Rounded;
    } cases[] = {{0, 0},    {0.5, 0},    {1.5, 2},   {2.5, 2},
                 {-0.5, 0}, {-1.5, -2},  {-2.5, -2}, {7.49, 7},
                 {7.51, 8}, {-7.51, -8}, {7.5, 8},   {0.49999999999999994, 0}};
    for (const auto& [value, rounded] : cases) {
        EXPECT_EQ(rounded, RoundToInt32(value)) << value;
        EXPECT_EQ(rounded, RoundToInt16(value)) << value;
    }
}

TEST(Rounding, ReachesBothEndsOfTheRange) {
    EXPECT_EQ(2147483647, RoundToInt32(2147483647.4));
    EXPECT_EQ(std::numeric_limits<std::int32_t>::min(), RoundToInt32(-2147483648.5));
    EXPECT_EQ(32767, RoundToInt16(32767.4));
    EXPECT_EQ(-32768, RoundToInt16(-32768.5));
}

TEST(Rounding, OverflowsBeyondTheRange) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {2147483647.5, -2147483649.0, infinity, -infinity,
                               std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW((void)RoundToInt32(value), RuntimeError) << value;
    }
    EXPECT_THROW((void)RoundToInt16(32767.5), RuntimeError);
    EXPECT_THROW((void)RoundToInt16(-32769), RuntimeError);
}

}  // namespace
}  // namespace ambrio
