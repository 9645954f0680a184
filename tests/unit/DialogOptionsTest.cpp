#include "config/model/DialogOptions.h"

#include <gtest/gtest.h>

#include "settings/SettingKeys.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {
namespace {

using Names = std::vector<std::wstring>;

TEST(DialogOptions, MissingAndOddValuesLeaveTheBoxesUnticked) {
    MemorySettingsStore store;
    for (const wchar_t* value : {L"", L"yes", L"No", L"True", L"Yes"}) {
        const DialogOptions options = LoadDialogOptions(store);
        EXPECT_FALSE(options.LogOnlyErrors || options.ClearLogDaily);
        store.Values[{kGeneralSection, kLogOnlyErrorsKey}] = value;
        store.Values[{kGeneralSection, kClearLogDailyKey}] = value;
    }
    const DialogOptions options = LoadDialogOptions(store);
    EXPECT_TRUE(options.LogOnlyErrors && options.ClearLogDaily);
    EXPECT_EQ(L"", options.SecondarySaver);
}

TEST(DialogOptions, AreSavedInTheirOrder) {
    MemorySettingsStore store;
    SaveDialogOptions(store, {true, false, L"Stars"});
    EXPECT_EQ((std::vector<MemorySettingsStore::Address>{{kGeneralSection, kLogOnlyErrorsKey},
                                                         {kGeneralSection, kClearLogDailyKey},
                                                         {kGeneralSection, kSecondarySaverKey}}),
              store.Writes);
    const DialogOptions options = LoadDialogOptions(store);
    EXPECT_TRUE(options.LogOnlyErrors);
    EXPECT_EQ(L"No", (store.Values[{kGeneralSection, kClearLogDailyKey}]));
    EXPECT_EQ(L"Stars", options.SecondarySaver);
}

TEST(DialogOptions, NoSaverIsStoredAsTheEmptyText) {
    MemorySettingsStore store;
    SaveDialogOptions(store, {false, false, kNoSaver});
    EXPECT_EQ(L"", (store.Values.at({kGeneralSection, kSecondarySaverKey})));
}

TEST(DialogOptions, TheStoredSaverIsFoundBehindEntryZeroOnly) {
    const Names sorted = {L"!First", L"(None)", L"Stars", L"Stars", L"stars"};
    EXPECT_EQ(0U, SaverToSelect(sorted, L""));
    EXPECT_EQ(2U, SaverToSelect(sorted, L"Stars"));
    EXPECT_EQ(4U, SaverToSelect(sorted, L"stars"));
    EXPECT_EQ(1U, SaverToSelect(sorted, L"(None)"));
    EXPECT_FALSE(SaverToSelect(sorted, L"!First").has_value());
    EXPECT_FALSE(SaverToSelect(sorted, L"STARS").has_value());
    EXPECT_FALSE(SaverToSelect({}, L"Stars").has_value());
}

}  // namespace
}  // namespace ambrio
