#include "platform/ProgramQuotes.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(ProgramQuotes, StandAroundAProgramWithBlanks) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"Ribbons.scr /S", L"Ribbons.scr /S"},
        {L"Rock & Roll.scr /S", L"\"Rock & Roll.scr\" /S"},
        {L"C:\\My Savers\\a.b.SCR /c", L"\"C:\\My Savers\\a.b.SCR\" /c"},
        {L"C:\\x.screens\\a.exe", L"C:\\x.screens\\a.exe"},
        {L"\"C:\\a b.scr\" /c", L"\"C:\\a b.scr\" /c"},
        {L"program /S", L"program /S"},
        {L"a \"b\".exe /c", L"a \"b\".exe /c"},
        {L"a b.exe \"c d\"", L"\"a b.exe\" \"c d\""},
        {L"a.sc", L"a.sc"},
        {L"", L""},
    };
    for (const auto& [line, quoted] : cases) {
        EXPECT_EQ(quoted, WithQuotedProgram(line)) << line;
    }
}

TEST(ProgramQuotes, AreNoPartOfTheProgram) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"Ribbons.scr /S", L"Ribbons.scr"},
        {L"Rock & Roll.scr /S", L"Rock & Roll.scr"},
        {L"C:\\My Savers\\a.b.SCR /c", L"C:\\My Savers\\a.b.SCR"},
        {L"\"C:\\a b.scr\" /c", L"C:\\a b.scr"},
        {L"\"C:\\a b.scr", L"C:\\a b.scr"},
        {L"program /S", L"program"},
        {L"a.sc", L"a.sc"},
        {L"\"", L""},
        {L"", L""},
    };
    for (const auto& [line, program] : cases) {
        EXPECT_EQ(program, ProgramOf(line)) << line;
    }
}

}  // namespace
}  // namespace ambrio
