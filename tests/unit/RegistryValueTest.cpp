#include "platform/RegistryValue.h"

#include <gtest/gtest.h>

#include <vector>

namespace ambrio {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr RegistryType kBinary{3};

Bytes NumberBytes(std::uint32_t number) {
    return {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8),
            static_cast<std::uint8_t>(number >> 16), static_cast<std::uint8_t>(number >> 24)};
}

Bytes TextBytes(const std::u16string& text) {
    Bytes bytes;
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

TEST(RegistryValue, GivesThreeCharactersOfANumber) {
    const std::pair<std::uint32_t, const wchar_t*> cases[] = {
        {0, L"000"},   {1, L"001"},    {42, L"042"},    {300, L"300"},
        {999, L"999"}, {1200, L"120"}, {65536, L"655"}, {0xFFFFFFFFU, L"429"}};
    for (const auto& [number, text] : cases) {
        EXPECT_EQ(text, RegistryValueText(RegistryType::Number, NumberBytes(number))) << number;
    }
}

TEST(RegistryValue, CutsANumberOfTheWrongSizeToItsBytesLessOne) {
    EXPECT_EQ(L"", RegistryValueText(RegistryType::Number, Bytes{7}));
    EXPECT_EQ(L"0", RegistryValueText(RegistryType::Number, Bytes{7, 0}));
    EXPECT_EQ(L"1677", RegistryValueText(RegistryType::Number, Bytes{0, 0, 0, 1, 9}));
    EXPECT_EQ(L"007", RegistryValueText(RegistryType::Number, Bytes{7, 0, 0, 0, 9, 9}));
}

TEST(RegistryValue, CutsTheLastCharacterOffATextWhateverItIs) {
    EXPECT_EQ(L"600", RegistryValueText(RegistryType::Text, TextBytes({u'6', u'0', u'0', u'\0'})));
    EXPECT_EQ(L"60", RegistryValueText(RegistryType::Text, TextBytes(u"600")));
    EXPECT_EQ(L"a\x0416",
              RegistryValueText(RegistryType::ExpandableText, TextBytes({u'a', u'\x0416', u'\0'})));
    EXPECT_EQ(L"", RegistryValueText(RegistryType::Text, TextBytes({u'\0'})));
    EXPECT_EQ(L"ab", RegistryValueText(kBinary, Bytes{'a', 'b', 'c'}));
}

TEST(RegistryValue, IsEmptyWithoutBytes) {
    for (const std::uint32_t type : {0U, 1U, 2U, 3U, 4U, 7U}) {
        EXPECT_EQ(L"", RegistryValueText(RegistryType{type}, {})) << type;
    }
    EXPECT_EQ(L"", RegistryValueText(RegistryType::Text, Bytes{'a'}));
}

TEST(RegistryValue, IsEmptyBeyondTheLongestValue) {
    EXPECT_EQ(std::wstring(254, L'x'),
              RegistryValueText(RegistryType::Text, TextBytes(std::u16string(255, u'x'))));
    EXPECT_EQ(L"", RegistryValueText(RegistryType::Text, TextBytes(std::u16string(256, u'x'))));
    EXPECT_EQ(std::wstring(254, L'x'), RegistryValueText(kBinary, Bytes(255, 'x')));
    EXPECT_EQ(L"", RegistryValueText(kBinary, Bytes(256, 'x')));
}

}  // namespace
}  // namespace ambrio
