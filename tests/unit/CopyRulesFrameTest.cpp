#include "config/model/CopyRulesFrame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "config/model/Schemes.h"

namespace ambrio {
namespace {

using Option = CopyTypeOption;

// Every state that the controls of the frame can be in.
std::vector<CopyRulesFrame> AllStates() {
    std::vector<CopyRulesFrame> states;
    for (const Option option :
         {Option::None, Option::DateTime, Option::Archive, Option::ReadOnly}) {
        for (unsigned bits = 0; bits < 16; ++bits) {
            states.push_back(
                {option, (bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0});
        }
    }
    return states;
}

void ExpectFromEveryState(const wchar_t* scheme, const CopyRulesFrame& expected) {
    for (CopyRulesFrame rules : AllStates()) {
        ApplyScheme(rules, scheme);
        EXPECT_EQ(expected, rules);
    }
}

TEST(CopyRulesFrame, DuplicationChoosesTheDateAndLocks) {
    ExpectFromEveryState(L"Duplication", {Option::DateTime, false, false, false, false});
}

TEST(CopyRulesFrame, DifferentialChoosesTheArchiveBitTicksTheDeletionAndLocks) {
    ExpectFromEveryState(L"Differential", {Option::Archive, false, true, false, false});
}

TEST(CopyRulesFrame, VersionControlChoosesReadOnlyTicksItsDeletionAndLocks) {
    ExpectFromEveryState(L"Version Control", {Option::ReadOnly, false, false, true, false});
}

TEST(CopyRulesFrame, SetMyOwnOnlyUnlocks) {
    for (const CopyRulesFrame& before : AllStates()) {
        CopyRulesFrame rules = before;
        ApplyScheme(rules, L"Set my own");
        CopyRulesFrame expected = before;
        expected.IsFrameEnabled = true;
        EXPECT_EQ(expected, rules);
    }
}

// Whatever the state before, a scheme leads to rules of its own that the frame can show, and locks
// them.
TEST(CopyRulesFrame, EachSchemeButTheFirstHasRulesThatNoOtherHas) {
    EXPECT_FALSE(kSchemes.front().Rules.has_value());
    std::vector<CopyRulesFrame> seen;
    for (const Scheme& scheme : std::span(kSchemes).subspan(1)) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(scheme.Name)));
        ASSERT_TRUE(scheme.Rules.has_value());
        const SchemeRules& fixed = *scheme.Rules;
        EXPECT_NE(Option::None, fixed.Option);
        const CopyRulesFrame rules{fixed.Option, fixed.ClearArchive, fixed.DeleteCopyArchive,
                                   fixed.DeleteCopyReadOnly, false};
        ExpectFromEveryState(scheme.Name, rules);
        CopyRulesFrame shown = rules;
        SetCheckBoxes(shown);
        EXPECT_EQ(rules, shown) << "ticks a box of another option";
        EXPECT_EQ(0, std::count(seen.begin(), seen.end(), rules));
        seen.push_back(rules);
    }
}

TEST(CopyRulesFrame, AnyOtherTextChangesNothing) {
    for (const wchar_t* text : {L"", L"differential", L"Differential ", L"Version", L"Other"}) {
        for (const CopyRulesFrame& before : AllStates()) {
            CopyRulesFrame rules = before;
            ApplyScheme(rules, text);
            EXPECT_EQ(before, rules);
        }
    }
}

TEST(CopyRulesFrame, UntickingGoesByTheChosenOption) {
    for (const CopyRulesFrame& before : AllStates()) {
        CopyRulesFrame rules = before;
        SetCheckBoxes(rules);
        const bool none = before.Chosen == Option::None;
        const bool archive = none || before.Chosen == Option::Archive;
        const bool readOnly = none || before.Chosen == Option::ReadOnly;
        EXPECT_EQ((CopyRulesFrame{before.Chosen, archive && before.ClearArchive,
                                  archive && before.DeleteCopyArchive,
                                  readOnly && before.DeleteCopyReadOnly, before.IsFrameEnabled}),
                  rules);
    }
}

TEST(CopyRulesFrame, BoxesAreEnabledByTheirOptionOnly) {
    for (const CopyRulesFrame& rules : AllStates()) {
        EXPECT_EQ(rules.Chosen == Option::Archive, rules.AreArchiveBoxesEnabled());
        EXPECT_EQ(rules.Chosen == Option::ReadOnly, rules.IsReadOnlyBoxEnabled());
    }
}

}  // namespace
}  // namespace ambrio
