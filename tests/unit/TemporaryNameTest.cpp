#include "platform/TemporaryName.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(TemporaryName, IsRecognised) {
    EXPECT_TRUE(IsTemporaryName(TemporaryName(0x0123456789ABCDEFU, 4711)));
    EXPECT_TRUE(IsTemporaryName(TemporaryName(0, 0xFFFFFFFFU)));
}

TEST(TemporaryName, HoldsTheWholeNumberAndTheProcess) {
    EXPECT_EQ(L"~ambrio-fedcba9876543210-0000abcd.tmp", TemporaryName(0xFEDCBA9876543210U, 0xABCD));
}

TEST(TemporaryName, LeavesTheUsersNamesAlone) {
    const std::wstring name = TemporaryName(5, 6);
    EXPECT_FALSE(IsTemporaryName(L""));
    EXPECT_FALSE(IsTemporaryName(L"~ambrio-.tmp"));
    EXPECT_FALSE(IsTemporaryName(name + L"x"));
    EXPECT_FALSE(IsTemporaryName(L"x" + name));
    std::wstring other = name;
    other[10] = L'g';
    EXPECT_FALSE(IsTemporaryName(other));
}

}  // namespace
}  // namespace ambrio
