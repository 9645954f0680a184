// After a run without failures the screen goes to another saver.

#include <gtest/gtest.h>

#include <optional>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/CurrentFolder.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/HeldFiles.h"
#include "tests/e2e/support/NativeFiles.h"
#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

constexpr const wchar_t* kName = L"AmbrioStandIn";

class SecondarySaverTest : public SaverTest {
  protected:
    SecondarySaverTest() : standIn_(kStandInKey) {
        Source.AddFile(L"file.txt", "file");
        WriteOneSet();
        Settings.Write(L"General", L"Secondary SS", kName);
    }

    // Skips the test when the system's folders refuse the stand-in.
    void Install(const std::wstring& folder) {
        installed_.emplace(TestProgramFolder() + L"\\StandInSaver.scr",
                           folder + L"\\" + kName + L".scr");
        if (!installed_->IsInstalled()) {
            GTEST_SKIP() << "the system's folders cannot be written with these rights";
        }
    }

    // The run must start the saver like this and then wait behind a box.
    void ExpectStarted(const std::wstring& line, int showState) {
        Start(L"/S");
        const MessageBoxProbe box = WaitForBox();
        EXPECT_EQ(box.Text(), L" completed ");
        EXPECT_EQ(box.Title(), L"Ambrio");
        EXPECT_EQ(box.Icon(), BoxIcon::None);
        EXPECT_TRUE(WaitUntil([] { return ReadText(kStandInKey, kSaverCommandLine).has_value(); }));
        EXPECT_EQ(ReadText(kStandInKey, kSaverCommandLine), line);
        EXPECT_EQ(ReadNumber(kStandInKey, kSaverShowState), static_cast<DWORD>(showState));
        EXPECT_TRUE(Program().IsRunning());
        EXPECT_TRUE(box.Press());
        EXPECT_TRUE(Ends());
        EXPECT_EQ(Program().ExitCode(), 0U);
    }

    // Puts the stand-in beside the program and into a folder that is then the current one.
    void Plant() {
        const std::wstring saver = std::wstring(L"\\") + kName + L".scr";
        MakeFolders(current_.Path());
        for (const std::wstring& folder : {Folder.Path(), current_.Path()}) {
            WriteFileBytes(folder + saver,
                           ReadFileBytes(TestProgramFolder() + L"\\StandInSaver.scr"));
        }
        current_.Enter();
    }

    // The run must tell what it cannot do, and end.
    void ExpectRefused(const std::wstring& what) {
        Start(L"/S");
        const MessageBoxProbe box = WaitForBox();
        EXPECT_EQ(WithoutReturns(box.Text()),
                  L"Trying to start secondary screen-saver\n" + what + L" " + kName);
        EXPECT_EQ(box.Title(), L"Ambrio");
        EXPECT_TRUE(box.Press());
        EXPECT_TRUE(Ends());
    }

    // The run must end like any other, without having started anything.
    void ExpectNotStarted() {
        EXPECT_TRUE(GoesOn());
        EXPECT_FALSE(MessageBoxProbe::Find(Program().ProcessId()));
        EXPECT_FALSE(KeyExists(kStandInKey));
    }

    RegistryTreeGuard standIn_;
    CurrentFolder current_{Folder.Below(L"Current")};
    std::optional<SystemFile> installed_;
};

TEST_F(SecondarySaverTest, IsStartedHiddenFromTheWindowsFolder) {
    Install(WindowsFolder());
    if (!IsSkipped()) {
        ExpectStarted(std::wstring(kName) + L".scr /S", SW_HIDE);
    }
}

TEST_F(SecondarySaverTest, IsStartedWithANormalWindowFromTheSystemFolder) {
    Install(SystemFolder());
    if (!IsSkipped()) {
        ExpectStarted(std::wstring(kName) + L".scr /s", SW_SHOWNORMAL);
    }
}

TEST_F(SecondarySaverTest, IsNeverOneThatLiesBesideTheProgramOrInTheCurrentFolder) {
    // Under the name that nobody is shown anything else for.
    const std::wstring system = HasTwoSystemFolders() ? OtherSystemFolder() : SystemFolder();
    for (const std::wstring& folder : {WindowsFolder(), system}) {
        Install(folder);
        if (IsSkipped()) {
            return;
        }
        Plant();
        const bool isHidden = folder == WindowsFolder();
        ExpectStarted(std::wstring(kName) + (isHidden ? L".scr /S" : L".scr /s"),
                      isHidden ? SW_HIDE : SW_SHOWNORMAL);
        EXPECT_EQ(ReadText(kStandInKey, kSaverPath), folder + L"\\" + kName + L".scr");
        RemoveKeyTree(kStandInKey);
    }
}

TEST_F(SecondarySaverTest, ThatOnlyLiesBesideTheProgramOrInTheCurrentFolderIsNotFound) {
    Plant();
    ExpectRefused(L"Can't find");
    EXPECT_FALSE(KeyExists(kStandInKey));
}

TEST_F(SecondarySaverTest, ThatIsNowhereIsReported) {
    ExpectRefused(L"Can't find");
    EXPECT_EQ(LatestBlock().size(), 7U);
}

TEST_F(SecondarySaverTest, ThatIsNoProgramIsReported) {
    installed_.emplace(Source.PathOf(L"file.txt"), WindowsFolder() + L"\\" + kName + L".scr");
    if (!installed_->IsInstalled()) {
        GTEST_SKIP() << "the Windows folder cannot be written with these rights";
    }
    ExpectRefused(L"Can't run");
}

TEST_F(SecondarySaverTest, IsNotStartedAfterAFailure) {
    Install(WindowsFolder());
    if (IsSkipped()) {
        return;
    }
    Settings.Write(L"Documents", L"Source", Source.PathOf(L"missing"));
    RunToTheEnd();
    ExpectNotStarted();
    EndByKeyAndBox();
}

TEST_F(SecondarySaverTest, IsNotStartedWhenOnlyErrorsAreLogged) {
    Install(WindowsFolder());
    if (IsSkipped()) {
        return;
    }
    Settings.Write(L"General", L"LogOnlyErrors", L"Yes");
    RunToTheEnd();
    ExpectNotStarted();
    EndByKey();
}

TEST_F(SecondarySaverTest, IsNotStartedAfterAnInterruptedRun) {
    Install(WindowsFolder());
    if (IsSkipped()) {
        return;
    }
    const HeldFiles files;
    LoadIntoPrograms(HeldFiles::Module());
    Source.AddFile(L"held.bin", std::string(2U << 20U, 'h'));
    Start(L"/S");
    const WindowProbe saver = Saver();
    EXPECT_TRUE(files.WaitUntilHeld());
    PressKey(VK_SPACE);
    EXPECT_TRUE(WaitUntil([&] { return !saver.IsVisible(); }));
    files.GoOn();
    EXPECT_TRUE(Ends());
    EXPECT_FALSE(KeyExists(kStandInKey));
}

}  // namespace
}  // namespace ambrio::e2e
