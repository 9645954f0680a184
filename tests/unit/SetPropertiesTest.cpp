#include "config/model/SetProperties.h"

#include <gtest/gtest.h>

#include "tests/support/MemorySettingsStore.h"

namespace ambrio {
namespace {

using Option = CopyTypeOption;
using Address = MemorySettingsStore::Address;

class SetPropertiesTest : public ::testing::Test {
  protected:
    void Put(const wchar_t* key, const std::wstring& value) { store_.Values[{L"S", key}] = value; }
    std::wstring Get(const wchar_t* key) { return store_.Values[{L"S", key}]; }
    SetProperties Load() { return LoadSetProperties(store_, L"S"); }

    // Everything ticked, as far as the store goes.
    void PutAllFlags(const wchar_t* value) {
        for (const wchar_t* key : {kRecursiveKey, kOverwriteReadOnlyKey, kClearArchiveBitKey,
                                   kDeleteCopyArchiveKey, kDeleteCopyReadOnlyKey}) {
            Put(key, value);
        }
    }

    MemorySettingsStore store_;
};

TEST_F(SetPropertiesTest, ANewSetStartsWithTheUsualFolders) {
    const SetProperties set = NewSetProperties();
    EXPECT_EQ(L"", set.Name);
    EXPECT_EQ(L"C:\\My Documents", set.Source);
    EXPECT_EQ(L"F:\\My Documents", set.Destination);
    EXPECT_TRUE(set.Recursive);
    EXPECT_FALSE(set.OverwriteReadOnly);
    EXPECT_EQ(L"Set my own", set.Scheme);
    EXPECT_EQ(CopyRulesFrame(), set.Rules);
}

TEST_F(SetPropertiesTest, MissingValuesTakeTheirDefaults) {
    const SetProperties set = Load();
    EXPECT_EQ(L"S", set.Name);
    EXPECT_EQ(L"", set.Source);
    EXPECT_EQ(L"", set.Destination);
    EXPECT_FALSE(set.Recursive);
    EXPECT_FALSE(set.OverwriteReadOnly);
    EXPECT_EQ(L"Set my own", set.Scheme);
    EXPECT_EQ(CopyRulesFrame(), set.Rules);
    EXPECT_TRUE(store_.Writes.empty());
}

TEST_F(SetPropertiesTest, OnlyTheExactYesTicks) {
    Put(kCopyTypeKey, kCopyTypeArchiveBit);
    for (const wchar_t* odd : {L"yes", L"YES", L"True", L"Yes ", L"No", L""}) {
        PutAllFlags(odd);
        const SetProperties set = Load();
        EXPECT_FALSE(set.Recursive || set.OverwriteReadOnly) << odd;
        EXPECT_EQ((CopyRulesFrame{Option::Archive, false, false, false, true}), set.Rules) << odd;
    }
    PutAllFlags(kYes);
    const SetProperties set = Load();
    EXPECT_TRUE(set.Recursive && set.OverwriteReadOnly);
    EXPECT_EQ((CopyRulesFrame{Option::Archive, true, true, false, true}), set.Rules);
}

TEST_F(SetPropertiesTest, TheStoredCopyTypeCountsForAUsersOwnRules) {
    PutAllFlags(kYes);
    Put(kSchemeKey, L"Set my own");
    const std::vector<std::pair<const wchar_t*, CopyRulesFrame>> cases = {
        {L"Date/Time", {Option::DateTime, false, false, false, true}},
        {L"ArchiveBit", {Option::Archive, true, true, false, true}},
        {L"ReadOnly", {Option::ReadOnly, false, false, true, true}},
        {L"archivebit", {Option::None, false, false, false, true}},
        {L"", {Option::None, false, false, false, true}},
    };
    for (const auto& [copyType, expected] : cases) {
        Put(kCopyTypeKey, copyType);
        EXPECT_EQ(expected, Load().Rules) << copyType;
    }
}

TEST_F(SetPropertiesTest, APresetHasItsOwnCopyTypeAndTheStoredTicks) {
    Put(kCopyTypeKey, kCopyTypeReadOnly);
    Put(kSchemeKey, L"Differential");
    // The scheme ticks the deletion, and the read unticks it again.
    EXPECT_EQ((CopyRulesFrame{Option::Archive, false, false, false, false}), Load().Rules);
    PutAllFlags(kYes);
    EXPECT_EQ((CopyRulesFrame{Option::Archive, true, true, false, false}), Load().Rules);
    Put(kSchemeKey, L"Duplication");
    EXPECT_EQ((CopyRulesFrame{Option::DateTime, false, false, false, false}), Load().Rules);
    Put(kSchemeKey, L"Version Control");
    EXPECT_EQ((CopyRulesFrame{Option::ReadOnly, false, false, true, false}), Load().Rules);
    PutAllFlags(kNo);
    EXPECT_EQ((CopyRulesFrame{Option::ReadOnly, false, false, false, false}), Load().Rules);
}

TEST_F(SetPropertiesTest, AnUnknownSchemeKeepsTheOptionOfANewSet) {
    Put(kCopyTypeKey, kCopyTypeArchiveBit);
    for (const wchar_t* scheme : {L"", L"duplication", L"Mirror"}) {
        Put(kSchemeKey, scheme);
        const SetProperties set = Load();
        EXPECT_EQ(L"Set my own", set.Scheme);
        EXPECT_EQ(CopyRulesFrame(), set.Rules);
    }
}

TEST_F(SetPropertiesTest, TheDeletionIsReadFromAnotherKeyThanItIsWritten) {
    Put(kCopyTypeKey, kCopyTypeArchiveBit);
    Put(kDeleteCopyArchiveBitKey, kYes);
    const SetProperties set = Load();
    EXPECT_FALSE(set.Rules.DeleteCopyArchive);
    SaveSetProperties(store_, set);
    EXPECT_EQ(kNo, Get(kDeleteCopyArchiveBitKey));
    EXPECT_EQ(0U, store_.Values.count({L"S", kDeleteCopyArchiveKey}));
}

TEST_F(SetPropertiesTest, SavesEverythingInItsOrderWithTrimmedTexts) {
    SetProperties set = NewSetProperties();
    set.Name = L"  S ";
    set.Source = L" C:\\a b ";
    set.Destination = L"  ";
    set.Scheme = L"typed by hand";
    set.Rules = {Option::Archive, true, true, false, true};
    EXPECT_EQ(L"S", SaveSetProperties(store_, set));
    const std::vector<std::pair<const wchar_t*, std::wstring>> expected = {
        {kSourceKey, L"C:\\a b"},
        {kDestinationKey, L""},
        {kRecursiveKey, L"Yes"},
        {kOverwriteReadOnlyKey, L"No"},
        {kCopyTypeKey, L"ArchiveBit"},
        {kClearArchiveBitKey, L"Yes"},
        {kDeleteCopyArchiveBitKey, L"Yes"},
        {kDeleteCopyReadOnlyKey, L"No"},
        {kSchemeKey, L"typed by hand"}};
    ASSERT_EQ(expected.size(), store_.Writes.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ((Address{L"S", expected[i].first}), store_.Writes[i]);
        EXPECT_EQ(expected[i].second, Get(expected[i].first)) << expected[i].first;
    }
}

TEST_F(SetPropertiesTest, SavesEachCopyTypeAndNoneWhenNoneIsChosen) {
    SetProperties set = NewSetProperties();
    set.Name = L"S";
    Put(kCopyTypeKey, L"odd");
    const std::vector<std::pair<Option, std::wstring>> cases = {{Option::None, L"odd"},
                                                                {Option::DateTime, L"Date/Time"},
                                                                {Option::Archive, L"ArchiveBit"},
                                                                {Option::ReadOnly, L"ReadOnly"}};
    for (const auto& [option, text] : cases) {
        set.Rules.Chosen = option;
        SaveSetProperties(store_, set);
        EXPECT_EQ(text, Get(kCopyTypeKey));
    }
}

TEST_F(SetPropertiesTest, AnEmptyNameWritesNothing) {
    EXPECT_FALSE(SaveSetProperties(store_, NewSetProperties()).has_value());
    EXPECT_TRUE(store_.Writes.empty());
}

TEST_F(SetPropertiesTest, ANameOfBlanksPassesAndIsTrimmedToNothing) {
    SetProperties set = NewSetProperties();
    set.Name = L"   ";
    EXPECT_EQ(L"", SaveSetProperties(store_, set));
    EXPECT_EQ(L"C:\\My Documents", (store_.Values[{L"", kSourceKey}]));
}

}  // namespace
}  // namespace ambrio
