#include "platform/KeyValueText.h"

#include <gtest/gtest.h>

#include <vector>

namespace ambrio {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes BytesOf(std::uint32_t number) {
    return {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8),
            static_cast<std::uint8_t>(number >> 16), static_cast<std::uint8_t>(number >> 24)};
}

TEST(KeyValueText, BytesOfANumberBelowSixteenLoseADigit) {
    const std::vector<std::pair<std::uint32_t, std::wstring>> cases = {{0, L"0"},
                                                                       {1, L"1"},
                                                                       {0x10, L"16"},
                                                                       {0x0105, L"21"},
                                                                       {0x1005, L"261"},
                                                                       {0x01020304, L"4660"},
                                                                       {0x10203040, L"270544960"},
                                                                       {0xFFFFFFFF, L"4294967295"}};
    for (const auto& [number, text] : cases) {
        EXPECT_EQ(text, KeyValueText(RegistryType::Number, BytesOf(number))) << number;
    }
}

TEST(KeyValueText, ANumberOfOddLengthIsStillRead) {
    EXPECT_EQ(L"0", KeyValueText(RegistryType::Number, {}));
    EXPECT_EQ(L"18", KeyValueText(RegistryType::Number, Bytes{0x12}));
    EXPECT_EQ(L"305419896", KeyValueText(RegistryType::Number, Bytes{0x78, 0x56, 0x34, 0x12, 9}));
}

TEST(KeyValueText, ATextLosesOneNulAtItsEnd) {
    for (const RegistryType type :
         {RegistryType::Text, RegistryType::ExpandableText, RegistryType::Texts}) {
        EXPECT_EQ(L"a\x0416", KeyValueText(type, Bytes{'a', 0, 0x16, 0x04, 0, 0}));
        EXPECT_EQ(L"ab", KeyValueText(type, Bytes{'a', 0, 'b', 0}));
        EXPECT_EQ(std::wstring(L"a\0", 2), KeyValueText(type, Bytes{'a', 0, 0, 0, 0, 0}));
        EXPECT_EQ(L"", KeyValueText(type, {}));
    }
}

TEST(KeyValueText, OtherTypesGiveACharacterAByte) {
    EXPECT_EQ(L"x\x00e9", KeyValueText(static_cast<RegistryType>(3), Bytes{'x', 0xE9, 0}));
}

}  // namespace
}  // namespace ambrio
