#include "saver/model/Ellipsis.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

// As if every character were as wide as every other.
std::wstring ShortenedTo(std::size_t characters, const std::wstring& text) {
    return Shortened(text, [characters](const std::wstring& candidate) {
        return candidate.size() <= characters;
    });
}

TEST(Ellipsis, LeavesATextThatFitsAlone) {
    EXPECT_EQ(L"", ShortenedTo(10, L""));
    EXPECT_EQ(L"report.doc", ShortenedTo(10, L"report.doc"));
}

TEST(Ellipsis, KeepsAsMuchOfBothEndsAsFits) {
    EXPECT_EQ(L"C:\\Us\x2026orts", ShortenedTo(10, L"C:\\Users\\reports"));
    EXPECT_EQ(L"C:\\User\x2026- done", ShortenedTo(14, L"C:\\Users\\long name.txt - done"));
}

TEST(Ellipsis, StandsAloneWhereNothingElseFits) {
    EXPECT_EQ(L"\x2026", ShortenedTo(1, L"report"));
    EXPECT_EQ(L"\x2026", ShortenedTo(0, L"report"));
}

TEST(Ellipsis, NeverHalvesACharacterOfTwoUnits) {
    const std::wstring pair = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    const std::wstring text = pair + pair + pair + pair + pair;
    for (std::size_t room = 1; room <= text.size(); ++room) {
        const std::wstring shown = ShortenedTo(room, text);
        EXPECT_EQ(0U, (shown.size() - (shown == text ? 0 : 1)) % 2) << room;
    }
    EXPECT_EQ(
        L"a\x2026"
        L"fg",
        ShortenedTo(4, L"a" + pair + L"bcdefg"));
    EXPECT_EQ(L"ab\x2026g", ShortenedTo(4, L"abcdef" + pair + L"g"));
}

TEST(Ellipsis, MeasuresALongTextAFewTimesOnly) {
    int measured = 0;
    const std::wstring shown =
        Shortened(std::wstring(30000, L'x'), [&measured](const std::wstring& candidate) {
            ++measured;
            return candidate.size() <= 60;
        });
    EXPECT_EQ(60U, shown.size());
    EXPECT_LE(measured, 12);
}

}  // namespace
}  // namespace ambrio
