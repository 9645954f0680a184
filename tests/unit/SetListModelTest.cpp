#include "config/model/SetListModel.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "settings/SettingKeys.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {
namespace {

using Entries = std::vector<SetEntry>;
using Address = MemorySettingsStore::Address;

const Entries kThree = {{L"A", true}, {L"B", false}, {L"C", true}};

SetListModel Built(MemorySettingsStore& store, const std::wstring& sets) {
    SetListModel model;
    model.BuildList(store, sets);
    return model;
}

TEST(SetListModel, BuildsOneTickedEntryForEachName) {
    MemorySettingsStore store;
    store.Values[{L"B", kSelectedKey}] = L"False";
    const SetListModel model = Built(store, L"A,B,C");
    EXPECT_EQ(kThree, model.Entries());
    EXPECT_EQ(0U, model.Current());
    EXPECT_TRUE(store.Writes.empty());
}

TEST(SetListModel, AnEmptyListBuildsNothing) {
    MemorySettingsStore store;
    const SetListModel model = Built(store, L"");
    EXPECT_TRUE(model.Entries().empty());
    EXPECT_FALSE(model.Current().has_value());
    EXPECT_EQ(L"", model.CurrentName());
}

TEST(SetListModel, DoubledAndTrailingCommasGiveEntriesWithoutName) {
    MemorySettingsStore store;
    EXPECT_EQ((Entries{{L"A", true}, {L"", true}, {L" B", true}, {L"", true}}),
              Built(store, L"A,, B,").Entries());
}

TEST(SetListModel, ReadsEveryFormOfABoolean) {
    MemorySettingsStore store;
    const std::vector<std::pair<const wchar_t*, bool>> forms = {
        {L"True", true}, {L"False", false}, {L"true", true}, {L"0", false}, {L"-1", true}};
    for (const auto& [text, isTicked] : forms) {
        store.Values[{L"A", kSelectedKey}] = text;
        EXPECT_EQ(isTicked, Built(store, L"A").Entries().front().IsTicked) << text;
    }
}

TEST(SetListModel, ATickThatIsNoBooleanIsAnErrorAndLeavesTheListAsItWas) {
    MemorySettingsStore store;
    store.Values[{L"B", kSelectedKey}] = L"maybe";
    SetListModel model;
    EXPECT_THROW(model.BuildList(store, L"A,B"), RuntimeError);
    EXPECT_TRUE(model.Entries().empty());
}

TEST(SetListModel, MovesTheCurrentEntryWithItsTick) {
    SetListModel model(kThree, 1);
    EXPECT_TRUE(model.MoveUp());
    EXPECT_EQ((Entries{{L"B", false}, {L"A", true}, {L"C", true}}), model.Entries());
    EXPECT_EQ(0U, model.Current());
    EXPECT_FALSE(model.MoveUp());
    EXPECT_TRUE(model.MoveDown());
    EXPECT_TRUE(model.MoveDown());
    EXPECT_EQ((Entries{{L"A", true}, {L"C", true}, {L"B", false}}), model.Entries());
    EXPECT_EQ(2U, model.Current());
    EXPECT_FALSE(model.MoveDown());
}

TEST(SetListModel, NothingMovesWithoutACurrentEntry) {
    for (SetListModel model :
         {SetListModel(), SetListModel(kThree, std::nullopt), SetListModel(kThree, 3)}) {
        const Entries before = model.Entries();
        EXPECT_FALSE(model.MoveUp());
        EXPECT_FALSE(model.MoveDown());
        model.RemoveCurrent();
        EXPECT_EQ(before, model.Entries());
    }
}

TEST(SetListModel, ANewEntryIsUntickedAndTheLastCanBeMadeCurrent) {
    SetListModel model(kThree, 0);
    model.Add(L"D");
    EXPECT_EQ(0U, model.Current());
    model.MakeLastCurrent();
    EXPECT_EQ(3U, model.Current());
    EXPECT_EQ((SetEntry{L"D", false}), model.Entries().back());
    SetListModel empty;
    empty.MakeLastCurrent();
    EXPECT_FALSE(empty.Current().has_value());
}

TEST(SetListModel, RemovingMakesTheFirstOfTheRestCurrent) {
    SetListModel model(kThree, 2);
    model.RemoveCurrent();
    EXPECT_EQ((Entries{{L"A", true}, {L"B", false}}), model.Entries());
    EXPECT_EQ(0U, model.Current());
    model.RemoveCurrent();
    model.RemoveCurrent();
    EXPECT_TRUE(model.Entries().empty());
    EXPECT_FALSE(model.Current().has_value());
}

TEST(SetListModel, SavesTheTicksFromFirstToLastAndThenTheNames) {
    MemorySettingsStore store;
    SetListModel(kThree, 0).Save(store);
    EXPECT_EQ((std::vector<Address>{{L"A", kSelectedKey},
                                    {L"B", kSelectedKey},
                                    {L"C", kSelectedKey},
                                    {kGeneralSection, kSetsKey}}),
              store.Writes);
    EXPECT_EQ((std::map<Address, std::wstring>{{{L"A", kSelectedKey}, L"True"},
                                               {{L"B", kSelectedKey}, L"False"},
                                               {{L"C", kSelectedKey}, L"True"},
                                               {{kGeneralSection, kSetsKey}, L"A,B,C"}}),
              store.Values);
}

TEST(SetListModel, SavesAnEmptyListAsTheEmptyText) {
    MemorySettingsStore store;
    SetListModel().Save(store);
    EXPECT_EQ((std::map<Address, std::wstring>{{{kGeneralSection, kSetsKey}, L""}}), store.Values);
}

TEST(SetListModel, ANameWithACommaComesBackAsTwo) {
    MemorySettingsStore store;
    SetListModel({{L"A,B", true}}, 0).Save(store);
    EXPECT_EQ(2U, Built(store, store.Values[{kGeneralSection, kSetsKey}]).Entries().size());
}

TEST(SetListModel, NamesOfEveryKindComeBackAsTheyAre) {
    const Entries entries = {{L"a\"b'c", true},
                             {L"x\\y", false},
                             {std::wstring(300, L'n'), true},
                             {L"\x0416\x05d0\x4e2d", true},
                             {L"", false},
                             {L" blanks ", true}};
    MemorySettingsStore store;
    SetListModel(entries, 0).Save(store);
    EXPECT_EQ(entries, Built(store, store.Values[{kGeneralSection, kSetsKey}]).Entries());
}

TEST(SetListModel, AHundredSetsKeepTheirOrder) {
    Entries entries;
    for (int i = 0; i < 100; ++i) {
        entries.push_back({L"Set " + std::to_wstring(i), i % 3 == 0});
    }
    MemorySettingsStore store;
    SetListModel(entries, 0).Save(store);
    EXPECT_EQ(entries, Built(store, store.Values[{kGeneralSection, kSetsKey}]).Entries());
}

}  // namespace
}  // namespace ambrio
