#include "settings/SetList.h"

#include <gtest/gtest.h>

#include "platform/Trim.h"

namespace ambrio {
namespace {

using Names = std::vector<std::wstring>;

TEST(SetList, SplitsAtEachCommaForTheDialogAndTrimsForTheRun) {
    const struct {
        const wchar_t* Sets;
        Names Dialog;
        Names Run;
    } cases[] = {
        {L"", {}, {}},
        {L"A", {L"A"}, {L"A"}},
        {L"A , B", {L"A ", L" B"}, {L"A", L"B"}},
        {L"A,B,", {L"A", L"B", L""}, {L"A", L"B", L""}},
        {L",", {L"", L""}, {L"", L""}},
        {L"A,,B", {L"A", L"", L"B"}, {L"A", L"", L"B"}},
        {L"  ", {L"  "}, {L""}},
        {L"\tA", {L"\tA"}, {L"\tA"}},
        {L" two words ", {L" two words "}, {L"two words"}},
    };
    for (const auto& [sets, dialog, run] : cases) {
        EXPECT_EQ(dialog, SplitSetList(sets)) << sets;
        EXPECT_EQ(run, SetNamesForRun(sets)) << sets;
    }
}

TEST(SetList, JoinsWithoutBlanksAndWithoutATrailingComma) {
    EXPECT_EQ(L"", JoinSetList({}));
    EXPECT_EQ(L"A", JoinSetList({L"A"}));
    EXPECT_EQ(L"A,B,C", JoinSetList({L"A", L"B", L"C"}));
}

TEST(SetList, GivesANameWithACommaBackAsTwo) {
    EXPECT_EQ((Names{L"A", L"B"}), SplitSetList(JoinSetList({L"A,B"})));
}

TEST(Trim, TakesBlanksAndNothingElseOffTheEnds) {
    EXPECT_EQ(L"a b", Trim(L"  a b "));
    EXPECT_EQ(L"", Trim(L"   "));
    EXPECT_EQ(L"\ta\x00a0", Trim(L" \ta\x00a0"));
}

}  // namespace
}  // namespace ambrio
