#include "saver/model/DesktopSettings.h"

#include <gtest/gtest.h>

#include <map>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

using Values = std::map<std::wstring, std::wstring>;

DesktopSettings Read(const Values& values) {
    return ReadDesktopSettings([&values](const std::wstring& name) {
        const auto found = values.find(name);
        return found == values.end() ? std::wstring() : found->second;
    });
}

// Settings of the two power-saving stages.
Values Stages(const wchar_t* lowActive, const wchar_t* lowTimeout, const wchar_t* offActive,
              const wchar_t* offTimeout) {
    return {{L"ScreenSaveLowPowerActive", lowActive},
            {L"ScreenSaveLowPowerTimeout", lowTimeout},
            {L"ScreenSavePowerOffActive", offActive},
            {L"ScreenSavePowerOffTimeout", offTimeout}};
}

TEST(DesktopSettings, CountMissingValuesAsOff) {
    const DesktopSettings settings = Read({});
    EXPECT_FALSE(settings.UsePassword);
    EXPECT_FALSE(settings.PowerSaveActive);
    EXPECT_EQ(0, settings.PowerSaveTimeout);
}

TEST(DesktopSettings, UseThePasswordForAnyNumberButZero) {
    for (const wchar_t* text : {L"1", L"001", L"-1", L"0.5", L" 2x"}) {
        EXPECT_TRUE(Read({{L"ScreenSaveUsePassword", text}}).UsePassword);
    }
    for (const wchar_t* text : {L"0", L"000", L"yes", L""}) {
        EXPECT_FALSE(Read({{L"ScreenSaveUsePassword", text}}).UsePassword);
    }
}

TEST(DesktopSettings, TakeTheFirstActivePowerSavingStage) {
    const struct {
        Values Stages;
        bool Active;
        std::int32_t Timeout;
    } cases[] = {
        {Stages(L"0", L"600", L"0", L"300"), false, 0},
        {Stages(L"1", L"600", L"0", L"300"), true, 600},
        {Stages(L"0", L"200", L"1", L"300"), true, 300},
        {Stages(L"1", L"600", L"1", L"300"), true, 300},
        {Stages(L"1", L"300", L"1", L"600"), true, 300},
        {Stages(L"1", L"300", L"1", L"300"), true, 300},
        {Stages(L"1", L"", L"1", L"300"), true, 0},
        {Stages(L"1", L"2.5", L"0", L""), true, 2},
    };
    for (const auto& [stages, active, timeout] : cases) {
        EXPECT_EQ(active, Read(stages).PowerSaveActive);
        EXPECT_EQ(timeout, Read(stages).PowerSaveTimeout);
    }
}

TEST(DesktopSettings, ReadTheTimeoutOfAnActiveStageOnly) {
    EXPECT_THROW(Read(Stages(L"1", L"99999999999", L"0", L"")), RuntimeError);
    EXPECT_EQ(0, Read(Stages(L"0", L"99999999999", L"0", L"")).PowerSaveTimeout);
}

}  // namespace
}  // namespace ambrio
