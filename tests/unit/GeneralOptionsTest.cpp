#include "settings/GeneralOptions.h"

#include <gtest/gtest.h>

#include "tests/support/ManualClock.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {
namespace {

TEST(GeneralOptions, TakeTheirDefaultsWhenMissing) {
    MemorySettingsStore settings;
    EXPECT_EQ(L"", ReadSets(settings));
    EXPECT_FALSE(ReadLogOnlyErrors(settings));
    EXPECT_EQ(L"", ReadSecondarySaver(settings));
    EXPECT_EQ(DateTime{}, ReadLastRun(settings));
    EXPECT_TRUE(settings.Values.empty());
}

TEST(GeneralOptions, StandInTheGeneralSection) {
    MemorySettingsStore settings;
    settings.Values = {{{L"General", L"Sets"}, L"A,B"},
                       {{L"General", L"LogOnlyErrors"}, L"Yes"},
                       {{L"General", L"Secondary SS"}, L"Ribbons"}};
    EXPECT_EQ(L"A,B", ReadSets(settings));
    EXPECT_TRUE(ReadLogOnlyErrors(settings));
    EXPECT_EQ(L"Ribbons", ReadSecondarySaver(settings));
}

TEST(GeneralOptions, LogEverythingUnlessExactlyYesIsStored) {
    MemorySettingsStore settings;
    for (const wchar_t* text : {L"yes", L"YES", L"True", L"", L"No"}) {
        settings.Values[{L"General", L"LogOnlyErrors"}] = text;
        EXPECT_FALSE(ReadLogOnlyErrors(settings)) << text;
    }
}

TEST(GeneralOptions, BringTheLastRunBack) {
    MemorySettingsStore settings;
    ManualClock clock({2026, 11, 21, 15, 49, 46});
    SaveLastRun(settings, clock.Now());
    EXPECT_EQ(clock.Time, ReadLastRun(settings));
    clock.Time = {2026, 11, 22, 0, 0, 0};
    SaveLastRun(settings, clock.Now());
    EXPECT_EQ(clock.Time, ReadLastRun(settings));
}

TEST(GeneralOptions, CountAnUnreadableLastRunAsDayZero) {
    MemorySettingsStore settings;
    for (const wchar_t* text : {L"", L"yesterday", L"99/99/2026"}) {
        settings.Values[{L"General", L"LastRun"}] = text;
        EXPECT_EQ(0, DayNumber(ReadLastRun(settings))) << text;
    }
}

}  // namespace
}  // namespace ambrio
