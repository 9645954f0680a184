#include "platform/win32/windows/BackBuffer.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);

TEST(BackBuffer, StartsBlackInItsSize) {
    const BackBuffer buffer(3, 2);
    EXPECT_EQ(3, buffer.Width());
    EXPECT_EQ(2, buffer.Height());
    EXPECT_EQ(RGB(0, 0, 0), GetPixel(buffer.DC(), 2, 1));
    EXPECT_EQ(CLR_INVALID, GetPixel(buffer.DC(), 3, 1));
}

TEST(BackBuffer, CopiesAPartToItsPlace) {
    const BackBuffer source(4, 4);
    const BackBuffer target(4, 4);
    SetPixel(source.DC(), 2, 3, kRed);
    source.CopyTo(target.DC(), 0, 1, {2, 3, 4, 4});
    EXPECT_EQ(kRed, GetPixel(target.DC(), 0, 1));
    EXPECT_EQ(RGB(0, 0, 0), GetPixel(target.DC(), 2, 3));
}

TEST(BackBuffer, TakesThePlaceOfAnother) {
    BackBuffer buffer(4, 4);
    BackBuffer larger(8, 8);
    SetPixel(larger.DC(), 7, 7, kRed);
    buffer = std::move(larger);
    EXPECT_EQ(8, buffer.Width());
    EXPECT_EQ(kRed, GetPixel(buffer.DC(), 7, 7));
}

TEST(BackBuffer, DoesNothingWithoutAPicture) {
    const BackBuffer none;
    const BackBuffer target(2, 2);
    EXPECT_EQ(nullptr, none.DC());
    none.CopyTo(target.DC(), 0, 0, {0, 0, 2, 2});
    EXPECT_EQ(RGB(0, 0, 0), GetPixel(target.DC(), 1, 1));
}

}  // namespace
}  // namespace ambrio
