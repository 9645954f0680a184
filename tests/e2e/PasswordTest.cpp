// The screen-saver password, which the program itself asks for on the Windows 9x family only.

#include <gtest/gtest.h>

#include <optional>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/HeldFiles.h"
#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/SystemCalls.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

class PasswordTest : public SaverTest {
  protected:
    PasswordTest() : standIn_(kStandInKey), usePassword_(L"Control Panel\\Desktop", kUsePassword) {
        WriteNumber(L"Control Panel\\Desktop", kUsePassword, 1);
    }

    // True once the saver has answered the password's refusal.
    [[nodiscard]] bool StaysAfterTheRefusal(DWORD timesAsked) {
        return WaitUntil([&] { return TimesAsked() == timesAsked; }) && Saver().Send(WM_NULL);
    }
    [[nodiscard]] static DWORD TimesAsked() {
        return ReadNumber(kStandInKey, kPasswordCalls).value_or(0);
    }
    static void Answer(bool accept) { WriteNumber(kStandInKey, kPasswordAnswer, accept ? 1 : 0); }

    void RunWithoutSets(const wchar_t* arguments = L"/S") {
        Start(arguments);
        EXPECT_TRUE(WaitUntil([this] { return LatestBlock().size() == 6; }));
    }

    static constexpr const wchar_t* kUsePassword = L"ScreenSaveUsePassword";
    RegistryTreeGuard standIn_;
    RegistryValueGuard usePassword_;
    SystemCalls calls_;
};

TEST_F(PasswordTest, IsNeverAskedForOnTheNtFamily) {
    LoadIntoPrograms(SystemCalls::Module());
    RunWithoutSets();
    EndByKey();
    EXPECT_EQ(TimesAsked(), 0U);
    EXPECT_EQ(calls_.Of(L"ScreenSaverRunning"), Lines{});
}

// Makes the program believe that it runs on the older family, with a module that answers.
class OldFamilyPasswordTest : public PasswordTest {
  protected:
    OldFamilyPasswordTest() : version_(L"Software\\Wine\\AppDefaults\\Ambrio.scr") {}

    void SetUp() override {
        if (!RunsOnWine()) {
            GTEST_SKIP() << "this system cannot pretend to be of the Windows 9x family";
        }
        WriteText(version_.Path(), L"Version", L"win98");
        module_.emplace(TestProgramFolder() + L"\\StandInPassword.dll",
                        SystemFolder() + L"\\password.cpl");
        ASSERT_TRUE(module_->IsInstalled());
    }

    RegistryTreeGuard version_;
    std::optional<SystemFile> module_;
};

TEST_F(OldFamilyPasswordTest, EndsTheSaverWhenItIsRight) {
    Answer(true);
    RunWithoutSets();
    const auto saver = static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(Saver().Handle()));
    EndByKey();
    EXPECT_EQ(TimesAsked(), 1U);
    EXPECT_EQ(ReadNumber(kStandInKey, kPasswordWindow), saver);
}

TEST_F(OldFamilyPasswordTest, KeepsTheSaverOnTopWhenItIsWrong) {
    Answer(false);
    RunWithoutSets();
    PressKey(VK_SPACE);
    EXPECT_TRUE(StaysAfterTheRefusal(1));
    EXPECT_TRUE(Saver().IsVisible());
    EXPECT_TRUE(Saver().IsTopmost());
    EXPECT_FALSE(Saver().ShowsPointer());
    Answer(true);
    EndByKey();
    EXPECT_EQ(TimesAsked(), 2U);
}

TEST_F(OldFamilyPasswordTest, LeavesThePointerOfAnOrdinaryWindowWhenItIsWrong) {
    Answer(false);
    RunWithoutSets(L"/D");
    PressKey(VK_SPACE);
    EXPECT_TRUE(StaysAfterTheRefusal(1));
    EXPECT_TRUE(Saver().ShowsPointer());
    Answer(true);
    EndByKey();
}

// The call's argument, the number that it points to, and no update flags.
TEST_F(OldFamilyPasswordTest, KeepsTheUserFromSwitchingAwayUntilItIsRight) {
    const std::wstring on = L"1 0 0";
    const std::wstring off = L"0 0 0";
    LoadIntoPrograms(SystemCalls::Module());
    Answer(false);
    RunWithoutSets();
    EXPECT_EQ(calls_.Of(L"ScreenSaverRunning"), Lines{on});
    PressKey(VK_SPACE);
    EXPECT_TRUE(StaysAfterTheRefusal(1));
    EXPECT_EQ(calls_.Of(L"ScreenSaverRunning"), Lines{on});
    Answer(true);
    EndByKey();
    EXPECT_EQ(calls_.Of(L"ScreenSaverRunning"), (Lines{on, off}));
}

TEST_F(OldFamilyPasswordTest, IsNotPassedByMessagesThatAnotherProgramMakesUp) {
    Answer(false);
    RunWithoutSets();
    const WindowProbe saver = Saver();
    for (WPARAM timer = 0; timer < 6; ++timer) {
        saver.Post(WM_TIMER, timer);
    }
    EXPECT_TRUE(saver.Send(WM_ENDSESSION, TRUE));
    EXPECT_TRUE(saver.Send(WM_DESTROY));
    saver.Post(WM_QUIT);
    PostThreadMessageW(GetWindowThreadProcessId(saver.Handle(), nullptr), WM_QUIT, 0, 0);
    // One that does not come after all is no leave for the next.
    EXPECT_EQ(saver.Send(WM_QUERYENDSESSION), TRUE);
    EXPECT_TRUE(saver.Send(WM_ENDSESSION, FALSE));
    EXPECT_TRUE(saver.Send(WM_ENDSESSION, TRUE));
    EXPECT_TRUE(GoesOn());
    EXPECT_TRUE(saver.IsVisible());
    EXPECT_EQ(TimesAsked(), 0U);
    Answer(true);
    EndByKey();
    EXPECT_EQ(TimesAsked(), 1U);
}

TEST_F(OldFamilyPasswordTest, IsNotAskedForWhenTheSessionEnds) {
    Answer(false);
    RunWithoutSets();
    EXPECT_EQ(Saver().Send(WM_QUERYENDSESSION), TRUE);
    EXPECT_TRUE(Saver().Send(WM_ENDSESSION, TRUE));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(TimesAsked(), 0U);
}

TEST_F(OldFamilyPasswordTest, WhenWrongDoesNotResumeARunThatWasStopped) {
    const HeldFiles files;
    LoadIntoPrograms(HeldFiles::Module());
    Source.AddFile(L"held.bin", std::string(2U << 20U, 'h'));
    Source.AddManyFiles(L"many", 30);
    WriteOneSet();
    Answer(false);
    Start(L"/S");
    const WindowProbe saver = Saver();
    EXPECT_TRUE(files.WaitUntilHeld());
    PressKey(VK_SPACE);
    EXPECT_TRUE(WaitUntil([&] { return !WaitPlateText(saver).empty(); }));
    files.GoOn();
    EXPECT_TRUE(StaysAfterTheRefusal(1));
    EXPECT_EQ(Panel().Number(PanelControl::lblcopied), 1);
    Answer(true);
    EndByKey();
    EXPECT_EQ(Log().Blocks().size(), 1U);
}

TEST_F(OldFamilyPasswordTest, IsNotAskedForWhenTheDesktopDoesNotUseIt) {
    WriteNumber(L"Control Panel\\Desktop", kUsePassword, 0);
    RunWithoutSets();
    EndByKey();
    EXPECT_EQ(TimesAsked(), 0U);
}

TEST_F(OldFamilyPasswordTest, EndsTheSaverWhenThereIsNoModuleToAsk) {
    module_.reset();
    RunWithoutSets();
    EndByKey();
}

}  // namespace
}  // namespace ambrio::e2e
