// The life of an installation: made by an installer, over an older one, used, and removed again.
// The installers lie beside this test program, where scripts/package-test puts them.

#include <gtest/gtest.h>

#include <array>
#include <system_error>

#include "ProductVersion.h"
#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Environment.h"
#include "tests/e2e/support/ExecutableFile.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/Installation.h"
#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/e2e/support/Text.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

constexpr const wchar_t* kDesktopKey = L"Control Panel\\Desktop";
constexpr const wchar_t* kPolicies =
    L"Software\\Policies\\Microsoft\\Windows\\Control Panel\\Desktop";
constexpr const wchar_t* kSystemPolicies =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\System";
constexpr const wchar_t* kOthersSaver = L"C:\\Savers\\other.scr";
// An installer that shows nothing still unpacks and writes.
constexpr Milliseconds kInstalled{60000};
constexpr DWORD kNeedsElevation = 740;  // as the system says it of itself

bool SaversMayStart() {
    BOOL active = FALSE;
    SystemParametersInfoW(SPI_GETSCREENSAVEACTIVE, 0, &active, 0);
    return active != FALSE;
}

void LetSaversStart(bool active) {
    SystemParametersInfoW(SPI_SETSCREENSAVEACTIVE, active ? 1 : 0, nullptr, 0);
}

class InstallerTest : public SaverTest, public DialogTest {
  protected:
    InstallerTest() {
        WriteText(kDesktopKey, L"SCRNSAVE.EXE", kOthersSaver);
        WriteText(kDesktopKey, L"ScreenSaveActive", L"0");
        WriteText(kDesktopKey, L"ScreenSaveTimeOut", L"777");
        LetSaversStart(false);
    }
    ~InstallerTest() override {
        // A test that has failed leaves nothing installed for the next one.
        for (const Installation& installation : {Everybodys, Own}) {
            if (isOurs_ && FileExists(installation.Remover())) {
                Remove(installation);
            }
        }
        LetSaversStart(mayStart_);
    }
    void SetUp() override {
        if (!FileExists(setup_)) {
            GTEST_SKIP() << "no installer lies beside the tests";
        }
        if (Everybodys.IsListed() || Own.IsListed() || FileExists(Everybodys.Program())) {
            GTEST_SKIP() << "Ambrio is installed on this system";
        }
        isOurs_ = true;
    }

    // Runs a program and waits until it, and all that it has started, has ended.
    static DWORD Run(const std::wstring& program, const std::wstring& arguments) {
        const RunningProgram running(program, arguments);
        EXPECT_TRUE(WaitUntil([&] { return running.ProcessCount() == 0; }, kInstalled));
        return running.ExitCode();
    }
    [[nodiscard]] DWORD Install(const std::wstring& arguments) const {
        return Run(setup_, L"/S " + arguments);
    }
    [[nodiscard]] DWORD InstallOlder(const std::wstring& arguments) const {
        return Run(olderSetup_, L"/S " + arguments);
    }
    static void RunRemover(const Installation& installation) {
        EXPECT_EQ(Run(installation.Remover(), L"/S"), 0U);
        EXPECT_FALSE(KeyExists(L"Software\\Ambrio")) << "what it has remembered";
    }
    void Remove(const Installation& installation) const {
        RunRemover(installation);
        RemoveWhatTheRemoverLeaves();
    }
    // The remover's copy of itself, which a system removes when it starts the next time, and what
    // it has put aside, which may be in use a moment longer.
    void RemoveWhatTheRemoverLeaves() const {
        EXPECT_TRUE(WaitUntil([this] {
            try {
                RemoveTree(Folder.Below(L"Temp"));
                MakeFolders(Folder.Below(L"Temp"));
                return true;
            } catch (const std::system_error&) {
                return false;
            }
        }));
    }
    static std::wstring Chosen() {
        return ReadText(kDesktopKey, L"SCRNSAVE.EXE").value_or(L"(none)");
    }
    // Whatever is done with the saver, the time after which it starts stays the user's.
    static void ExpectSaver(const std::wstring& saver, bool active) {
        EXPECT_EQ(Chosen(), saver);
        EXPECT_EQ(ReadText(kDesktopKey, L"ScreenSaveActive"), active ? L"1" : L"0");
        // Wine's programs do not hear of what another has changed.
        EXPECT_TRUE(RunsOnWine() || SaversMayStart() == active);
        EXPECT_EQ(ReadText(kDesktopKey, L"ScreenSaveTimeOut"), L"777");
    }
    static void ExpectWhole(const Installation& installation);
    static void ExpectGone(const Installation& installation);
    // Runs the installed program as the saver, with one Set, and ends it. Where its log is.
    std::wstring RunInstalled(const Installation& installation);
    void ExpectShortcutOpens(const Installation& installation, const std::wstring& name,
                             const std::wstring& arguments, const std::wstring& title);
    void ExpectStartOpens(const Installation& installation, const std::wstring& arguments,
                          const std::wstring& title);

    const Installation Everybodys{Installation::For::Everybody};
    const Installation Own{Installation::For::ThisUser};

    const std::wstring setup_ = TestProgramFolder() + L"\\Setup.exe";

  private:
    const std::wstring olderSetup_ = TestProgramFolder() + L"\\Older-setup.exe";
    const bool mayStart_ = SaversMayStart();
    bool isOurs_ = false;
    std::array<RegistryValueGuard, 3> values_{
        RegistryValueGuard(kDesktopKey, L"SCRNSAVE.EXE"),
        RegistryValueGuard(kDesktopKey, L"ScreenSaveActive"),
        RegistryValueGuard(kDesktopKey, L"ScreenSaveTimeOut")};
};

void InstallerTest::ExpectWhole(const Installation& installation) {
    const std::wstring built =
        TestProgramFolder() + (Is64BitSystem() ? L"\\Ambrio64.scr" : L"\\Ambrio.scr");
    ASSERT_TRUE(FileExists(installation.Program()));
    EXPECT_EQ(ExecutableFile(installation.Program()).Is64Bit(), Is64BitSystem());
    EXPECT_TRUE(ReadFileBytes(installation.Program()) == ReadFileBytes(built));
    for (const wchar_t* name : {L"filecopy.avi", L"Ambrio.HLP", L"Ambrio.cnt", L"Ambrio.html"}) {
        EXPECT_TRUE(FileExists(installation.ProgramFolder() + L"\\" + name)) << Utf8(name);
    }
    EXPECT_EQ(ReadShortcut(installation.StartMenu() + L"\\Ambrio Help.lnk").Path,
              installation.ProgramFolder() + L"\\Ambrio.html");
    EXPECT_TRUE(FileExists(installation.Folder() + L"\\LICENSE.txt"));
    EXPECT_TRUE(FileExists(installation.Folder() + L"\\ThirdPartyNotices.txt"));
    const std::wstring version = std::to_wstring(AMBRIO_VERSION_MAJOR) + L"." +
                                 std::to_wstring(AMBRIO_VERSION_MINOR) + L"." +
                                 std::to_wstring(AMBRIO_VERSION_REVISION);
    EXPECT_EQ(installation.ListedText(L"DisplayName"), L"Ambrio");
    EXPECT_EQ(installation.ListedText(L"DisplayVersion"), version);
    EXPECT_EQ(installation.ListedText(L"Publisher"), L"" AMBRIO_PUBLISHER);
    EXPECT_EQ(installation.ListedText(L"InstallLocation"), installation.Folder());
    EXPECT_EQ(installation.ListedText(L"DisplayIcon"), installation.Program() + L",0");
    EXPECT_EQ(installation.ListedText(L"UninstallString"), L"\"" + installation.Remover() + L"\"");
    EXPECT_EQ(installation.ListedText(L"QuietUninstallString"),
              L"\"" + installation.Remover() + L"\" /S");
    const auto program = ReadFileBytes(installation.Program()).size() / 1024;
    EXPECT_GT(installation.ListedNumber(L"EstimatedSize"), program);
    EXPECT_LT(installation.ListedNumber(L"EstimatedSize"), 4 * program);
}

void InstallerTest::ExpectGone(const Installation& installation) {
    EXPECT_FALSE(installation.IsListed());
    EXPECT_FALSE(FolderExists(installation.StartMenu()));
    for (const wchar_t* name : {L"Ambrio.scr", L"AmbrioStart.exe", L"filecopy.avi", L"Ambrio.HLP",
                                L"Ambrio.cnt", L"Ambrio.html", L"LICENSE.txt", L"Uninstall.exe",
                                L"ThirdPartyNotices.txt", L"Ambrio.scr.1.old"}) {
        EXPECT_FALSE(FileExists(installation.ProgramFolder() + L"\\" + name)) << Utf8(name);
        EXPECT_FALSE(FileExists(installation.Folder() + L"\\" + name)) << Utf8(name);
    }
}

std::wstring InstallerTest::RunInstalled(const Installation& installation) {
    Source.AddFile(L"letter.txt", "Dear");
    WriteOneSet();
    StartFile(installation.Program(), L"/S");
    WaitForTheEndOfTheRun();
    EndByKey();
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\letter.txt"), "Dear");
    const std::wstring beside = installation.ProgramFolder() + L"\\Ambrio.log";
    return FileExists(beside) ? beside
                              : TextFromEnvironment(L"LOCALAPPDATA") + L"\\Ambrio\\Ambrio.log";
}

void InstallerTest::ExpectShortcutOpens(const Installation& installation, const std::wstring& name,
                                        const std::wstring& arguments, const std::wstring& title) {
    const ShortcutTarget target = ReadShortcut(installation.StartMenu() + L"\\" + name + L".lnk");
    EXPECT_EQ(target.Path, installation.Folder() + L"\\AmbrioStart.exe");
    EXPECT_EQ(target.Arguments, arguments);
    ExpectStartOpens(installation, arguments, title);
}

void InstallerTest::ExpectStartOpens(const Installation& installation,
                                     const std::wstring& arguments, const std::wstring& title) {
    StartFile(installation.Folder() + L"\\AmbrioStart.exe", arguments);
    ASSERT_TRUE(WaitUntil([&] { return !Program().StartedProcessIds().empty(); }));
    const auto window = WaitForWindow(Program().StartedProcessIds().front(), title);
    ASSERT_TRUE(window) << "no window titled " << Utf8(title);
    EXPECT_TRUE(ClosesByItsBox(*window));
    EXPECT_TRUE(Ends());
}

TEST_F(InstallerTest, PutsTheProgramForEverybodyWhereSaversAreListed) {
    ASSERT_EQ(Install(L"/AllUsers"), 0U);
    ExpectWhole(Everybodys);
    EXPECT_FALSE(Own.IsListed());
    ExpectSaver(kOthersSaver, false);
    ExpectShortcutOpens(Everybodys, L"Configure Ambrio", L"/C", kConfiguration);
    const std::wstring log = RunInstalled(Everybodys);
    EXPECT_TRUE(LogText(log).Contains(L"'Documents' complete"));

    Remove(Everybodys);
    ExpectGone(Everybodys);
    EXPECT_FALSE(FolderExists(Everybodys.Folder()));
    ExpectSaver(kOthersSaver, false);
    EXPECT_TRUE(FileExists(log));
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\letter.txt"), "Dear");
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), L"Documents");
    EXPECT_NE(0, DeleteFileW(log.c_str()));
}

TEST_F(InstallerTest, MakesTheProgramOfThisUserAloneTheSaver) {
    ASSERT_EQ(Install(L"/CurrentUser"), 0U);
    ExpectWhole(Own);
    EXPECT_FALSE(Everybodys.IsListed());
    EXPECT_FALSE(FileExists(Everybodys.Program()));
    ExpectSaver(Own.Program(), true);
    ExpectShortcutOpens(Own, L"Back up now", L"/D", kSaverTitle);
    ExpectStartOpens(Own, L"", kConfiguration);  // as by a double click
    const std::wstring log = RunInstalled(Own);
    EXPECT_EQ(log, Own.Folder() + L"\\Ambrio.log");

    Remove(Own);
    ExpectGone(Own);
    ExpectSaver(kOthersSaver, false);
    EXPECT_TRUE(FileExists(log));
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\letter.txt"), "Dear");
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), L"Documents");
    // The log was all that the folder held.
    EXPECT_NE(0, DeleteFileW(log.c_str()));
    EXPECT_NE(0, RemoveDirectoryW(Own.Folder().c_str()));
}

TEST_F(InstallerTest, DoesWithTheSaverWhatTheCommandLineSays) {
    ASSERT_EQ(Install(L"/CurrentUser /KeepSaver"), 0U);
    ExpectSaver(kOthersSaver, false);
    Remove(Own);
    ExpectSaver(kOthersSaver, false);
    ASSERT_EQ(Install(L"/AllUsers /MakeSaver"), 0U);
    ExpectSaver(Everybodys.Program(), true);
    Remove(Everybodys);
    ExpectSaver(kOthersSaver, false);
}

TEST_F(InstallerTest, BringsBackThatThereWasNoSaver) {
    RemoveValue(kDesktopKey, L"SCRNSAVE.EXE");
    ASSERT_EQ(Install(L"/CurrentUser"), 0U);
    ExpectSaver(Own.Program(), true);
    Remove(Own);
    EXPECT_EQ(ReadText(kDesktopKey, L"SCRNSAVE.EXE"), std::nullopt);
}

TEST_F(InstallerTest, LeavesASaverThatTheUserHasChosenSince) {
    ASSERT_EQ(Install(L"/CurrentUser"), 0U);
    // There, and even of the same name, but not the one that is removed.
    WriteText(kDesktopKey, L"SCRNSAVE.EXE", Folder.Program());
    Remove(Own);
    ExpectSaver(Folder.Program(), true);
}

TEST_F(InstallerTest, KnowsItsProgramByTheShortPathToo) {
    ASSERT_EQ(Install(L"/CurrentUser"), 0U);
    std::array<wchar_t, MAX_PATH> path{};
    ASSERT_GT(GetShortPathNameW(Own.Program().c_str(), path.data(), MAX_PATH), 0U);
    if (path.data() == Own.Program()) {
        GTEST_SKIP() << "its path is a short one already, or this drive has none";
    }
    WriteText(kDesktopKey, L"SCRNSAVE.EXE", path.data());
    Remove(Own);
    ExpectSaver(kOthersSaver, false);
}

TEST_F(InstallerTest, LeavesTheSaverAloneWhereAnAdministratorDecides) {
    if (!MayChangeKey(kPolicies)) {
        GTEST_SKIP() << "this user may not set policies";
    }
    {
        const RegistryTreeGuard policies(kPolicies);
        WriteText(kPolicies, L"SCRNSAVE.EXE", L"C:\\Savers\\decided.scr");
        ASSERT_EQ(Install(L"/CurrentUser"), 0U);
        ExpectSaver(kOthersSaver, false);
        RemoveKeyTree(kPolicies);
        WriteText(kPolicies, L"ScreenSaveActive", L"0");
        ASSERT_EQ(Install(L"/CurrentUser"), 0U);
        ExpectSaver(kOthersSaver, false);
    }
    const RegistryTreeGuard policies(kSystemPolicies);
    WriteNumber(kSystemPolicies, L"NoDispScrSavPage", 1);
    ASSERT_EQ(Install(L"/CurrentUser"), 0U);
    ExpectSaver(kOthersSaver, false);
    RemoveKeyTree(kSystemPolicies);
    ASSERT_EQ(Install(L"/CurrentUser"), 0U);
    ExpectSaver(Own.Program(), true);
    Remove(Own);
}

TEST_F(InstallerTest, UpgradesAnOlderVersionAlsoWhileItRuns) {
    for (const Installation* installation : {&Everybodys, &Own}) {
        const bool isOwn = installation == &Own;
        ASSERT_EQ(InstallOlder(isOwn ? L"/CurrentUser" : L"/AllUsers /MakeSaver"), 0U);
        EXPECT_EQ(installation->ListedText(L"DisplayVersion"), L"0.9.0");
        StartFile(installation->Program(), L"/C");
        const WindowProbe dialog = WindowTitled(kConfiguration);

        ASSERT_EQ(Install(L""), 0U);  // stays where it is
        ExpectWhole(*installation);
        EXPECT_TRUE(Program().IsRunning());
        EXPECT_TRUE(FileExists(installation->Program() + L".1.old")) << "what still runs";
        EXPECT_TRUE(ClosesByItsBox(dialog));
        EXPECT_TRUE(Ends());
        ASSERT_EQ(Install(L""), 0U);
        EXPECT_FALSE(FileExists(installation->Program() + L".1.old")) << "nobody uses it";

        ExpectSaver(installation->Program(), true);
        Remove(*installation);
        ExpectGone(*installation);
        ExpectSaver(kOthersSaver, false);
    }
}

TEST_F(InstallerTest, RemovesAProgramThatRunsAndWhatAnUpgradeHasPutAside) {
    ASSERT_EQ(InstallOlder(L"/CurrentUser"), 0U);
    StartFile(Own.Program(), L"/C");
    const WindowProbe dialog = WindowTitled(kConfiguration);
    ASSERT_EQ(Install(L""), 0U);
    RunRemover(Own);
    ExpectGone(Own);
    EXPECT_FALSE(FolderExists(Own.Folder()));
    EXPECT_TRUE(ClosesByItsBox(dialog));
    EXPECT_TRUE(Ends());
    RemoveWhatTheRemoverLeaves();
}

TEST_F(InstallerTest, GivesUpTheUsersOwnInstallationForOneForEverybody) {
    ASSERT_EQ(Install(L"/CurrentUser"), 0U);
    ASSERT_EQ(Install(L"/AllUsers"), 0U);
    ExpectWhole(Everybodys);
    ExpectGone(Own);
    ExpectSaver(Everybodys.Program(), true);
    Remove(Everybodys);
    ExpectGone(Everybodys);
    ExpectSaver(kOthersSaver, false);
}

TEST_F(InstallerTest, SaysThatItNeedsRightsAndDoesNothingWithoutThem) {
    const std::optional<DWORD> code = RunWithoutRights(setup_, L"/S /AllUsers");
    if (!code) {
        GTEST_SKIP() << "a program cannot give up its rights here";
    }
    EXPECT_EQ(code, kNeedsElevation);
    ExpectGone(Everybodys);
    ExpectSaver(kOthersSaver, false);
}

TEST_F(InstallerTest, PutsSignedFilesInPlaceWhenItIsSigned) {
    const std::wstring setup = TestProgramFolder() + L"\\Signed-setup.exe";
    if (!FileExists(setup)) {
        GTEST_SKIP() << "no signed installer lies beside the tests";
    }
    EXPECT_TRUE(ExecutableFile(setup).IsSigned());
    ASSERT_EQ(Run(setup, L"/S /CurrentUser"), 0U);
    EXPECT_TRUE(ExecutableFile(Own.Program()).IsSigned());
    EXPECT_TRUE(ExecutableFile(Own.Folder() + L"\\AmbrioStart.exe").IsSigned());
    EXPECT_TRUE(ExecutableFile(Own.Remover()).IsSigned());
    Remove(Own);
}

}  // namespace
}  // namespace ambrio::e2e
