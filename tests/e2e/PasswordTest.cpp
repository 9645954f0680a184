// The screen-saver password, which the program itself asks for on the Windows 9x family only.

#include <gtest/gtest.h>

#include <optional>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

class PasswordTest : public SaverTest {
  protected:
    PasswordTest() : standIn_(kStandInKey), usePassword_(L"Control Panel\\Desktop", kUsePassword) {
        WriteNumber(L"Control Panel\\Desktop", kUsePassword, 1);
    }

    [[nodiscard]] static DWORD TimesAsked() {
        return ReadNumber(kStandInKey, kPasswordCalls).value_or(0);
    }
    static void Answer(bool accept) { WriteNumber(kStandInKey, kPasswordAnswer, accept ? 1 : 0); }

    void RunWithoutSets() {
        Start(L"/S");
        EXPECT_TRUE(WaitUntil([this] { return LatestBlock().size() == 6; }));
    }

    static constexpr const wchar_t* kUsePassword = L"ScreenSaveUsePassword";
    RegistryTreeGuard standIn_;
    RegistryValueGuard usePassword_;
};

TEST_F(PasswordTest, IsNeverAskedForOnTheNtFamily) {
    RunWithoutSets();
    EndByKey();
    EXPECT_EQ(TimesAsked(), 0U);
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
    EXPECT_TRUE(WaitUntil([] { return TimesAsked() == 1; }));
    EXPECT_TRUE(GoesOn());
    EXPECT_TRUE(Saver().IsVisible());
    EXPECT_TRUE(Saver().IsTopmost());
    Answer(true);
    EndByKey();
    EXPECT_EQ(TimesAsked(), 2U);
}

TEST_F(OldFamilyPasswordTest, WhenWrongDoesNotResumeARunThatWasStopped) {
    Source.AddManyFiles(L"many", 150);
    WriteOneSet();
    Answer(false);
    RunUntilFilesAreCopied();
    PressKey(VK_SPACE);
    EXPECT_TRUE(WaitUntil([] { return TimesAsked() == 1; }));
    EXPECT_TRUE(GoesOn());
    EXPECT_LT(Panel().Number(PanelControl::lblcopied), 150);
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
