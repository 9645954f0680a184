#include "platform/TemporaryName.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(TemporaryName, IsRecognised) {
    EXPECT_TRUE(IsTemporaryName(TemporaryName(L"LETTER.TXT", 4711)));
    EXPECT_TRUE(IsTemporaryName(TemporaryName(L"", 0xFFFFFFFFU)));
}

TEST(TemporaryName, DiffersByFileAndByProcess) {
    EXPECT_NE(TemporaryName(L"A", 1), TemporaryName(L"B", 1));
    EXPECT_NE(TemporaryName(L"A", 1), TemporaryName(L"A", 2));
}

TEST(TemporaryName, LeavesTheUsersNamesAlone) {
    const std::wstring name = TemporaryName(L"A", 1);
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
