// What the desktop's settings, which anybody may have written, make of the saver.

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>

#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

constexpr const wchar_t* kDesktop = L"Control Panel\\Desktop";
constexpr WPARAM kStepTimer = 2;

class DesktopValuesTest : public SaverTest {
  protected:
    DesktopValuesTest() { WriteOneSet(); }

    static void SetLowPower(const wchar_t* active, const wchar_t* timeout) {
        WriteText(kDesktop, L"ScreenSaveLowPowerActive", active);
        WriteText(kDesktop, L"ScreenSaveLowPowerTimeout", timeout);
        WriteText(kDesktop, L"ScreenSavePowerOffActive", L"0");
    }

    // A step of the animation more than the timer makes; it is done when this returns.
    void Step(int steps) {
        const WindowProbe saver = Saver();
        for (int i = 0; i < steps; ++i) {
            ASSERT_TRUE(saver.Send(WM_TIMER, kStepTimer));
        }
    }
    // In pixels, along both axes, looked at every few steps, as it may turn back at an edge.
    [[nodiscard]] LONG WayOfThePanelIn(int steps) {
        constexpr int kStepsALook = 5;
        LONG way = 0;
        RECT before = Panel().Rectangle();
        for (int look = 0; look < steps / kStepsALook; ++look) {
            Step(kStepsALook);
            const RECT after = Panel().Rectangle();
            way += std::abs(before.left - after.left) + std::abs(before.top - after.top);
            before = after;
        }
        return way;
    }

    std::array<RegistryValueGuard, 4> values_{
        RegistryValueGuard(kDesktop, L"ScreenSaveLowPowerActive"),
        RegistryValueGuard(kDesktop, L"ScreenSaveLowPowerTimeout"),
        RegistryValueGuard(kDesktop, L"ScreenSavePowerOffActive"),
        RegistryValueGuard(kDesktop, L"ScreenSavePowerOffTimeout")};
};

TEST_F(DesktopValuesTest, AFailureWhileTheFormLoadsIsToldInABoxThatStays) {
    SetLowPower(L"1", L"99999999999");
    Start(L"/S");
    const MessageBoxProbe box = WaitForBox();
    EXPECT_EQ(box.Title(), L"Ambrio");
    EXPECT_EQ(WithoutReturns(box.Text()), L"Run-time error '6':\n\nOverflow");
    EXPECT_EQ(box.Icon(), BoxIcon::CriticalStop);
    EXPECT_EQ(TopLevelWindows(Program().ProcessId()).front().Handle(), box.Window().Handle())
        << "the form covers the box";
    EXPECT_TRUE(GoesOn());
    EXPECT_TRUE(box.Press());
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Program().ExitCode(), 6U);
    EXPECT_FALSE(Log().Exists());
}

TEST_F(DesktopValuesTest, TheAnimationWindsDownUntilTheDisplaysFirstPowerSavingStage) {
    SetLowPower(L"1", L"40");
    RunToTheEnd();
    Step(140);
    EXPECT_GT(WayOfThePanelIn(50), 35) << "15 seconds after the run";
    Step(250);
    const LONG atRest = WayOfThePanelIn(50);
    EXPECT_LT(atRest, 20) << "40 seconds after the run";
    EXPECT_GT(atRest, 0) << "nothing burns into a display that stays on";
    EndByKey();
}

TEST_F(DesktopValuesTest, TheAnimationGoesOnWhereTheDisplayDoesNotSavePower) {
    SetLowPower(L"0", L"40");
    RunToTheEnd();
    Step(500);
    EXPECT_GT(WayOfThePanelIn(50), 35);
    EndByKey();
}

}  // namespace
}  // namespace ambrio::e2e
