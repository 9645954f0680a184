#include "platform/Val.h"

#include <gtest/gtest.h>

#include <limits>

namespace ambrio {
namespace {

TEST(Val, ReadsTheNumberAtTheStart) {
    EXPECT_EQ(1234, Val(L"1234"));
    EXPECT_EQ(1234, Val(L" 1234"));
    EXPECT_EQ(12, Val(L"12abc"));
    EXPECT_EQ(-7.5, Val(L"-7.5"));
    EXPECT_EQ(7, Val(L"+7"));
    EXPECT_EQ(0.5, Val(L".5"));
    EXPECT_EQ(1.2, Val(L"1.2.3"));
    EXPECT_EQ(1200, Val(L"1.2e3"));
    EXPECT_EQ(1200, Val(L"1.2D+3"));
    EXPECT_EQ(0.034, Val(L"3.4d-2"));
    EXPECT_EQ(56, Val(L"5.6E1"));
    EXPECT_EQ(12, Val(L"12e"));
}

TEST(Val, GivesZeroWithoutANumber) {
    EXPECT_EQ(0, Val(L""));
    EXPECT_EQ(0, Val(L"   "));
    EXPECT_EQ(0, Val(L"x1"));
    EXPECT_EQ(0, Val(L"-"));
    EXPECT_EQ(0, Val(L"e5"));
    EXPECT_EQ(0, Val(L":12"));
}

TEST(Val, GoesToInfinityBeyondADouble) {
    EXPECT_EQ(std::numeric_limits<double>::infinity(), Val(L"1e999"));
    EXPECT_EQ(-std::numeric_limits<double>::infinity(), Val(L"-1e999"));
    const std::wstring zeros(400, L'0');
    EXPECT_EQ(std::numeric_limits<double>::infinity(), Val(L"1" + zeros));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), Val(L"0." + zeros + L"1e+999"));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), Val(L"1e99999999999999999999e-9"));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), Val(L"1" + zeros + L"e-5"));
    EXPECT_EQ(-std::numeric_limits<double>::infinity(), Val(L"-1" + zeros + L".5e-5x"));
}

TEST(Val, GoesToZeroBelowADouble) {
    const std::wstring zeros(400, L'0');
    EXPECT_EQ(0, Val(L"1e-999"));
    EXPECT_EQ(0, Val(L"123456789.5e-999"));
    EXPECT_EQ(0, Val(L"-1e-99999999999999999999.e999"));
    EXPECT_EQ(0, Val(L"0." + zeros + L"1"));
    EXPECT_EQ(0, Val(L"-." + zeros + L"1e5"));
    EXPECT_EQ(0, Val(L"0." + zeros + L"1e+50.7"));
    EXPECT_EQ(1e99, Val(L"0." + zeros + L"1e500"));
}

}  // namespace
}  // namespace ambrio
