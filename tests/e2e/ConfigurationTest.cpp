// The configuration dialog, used from outside.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

class ConfigurationTest : public DialogTest {
  protected:
    // Puts the stand-in among the system's savers and makes it the stored one; skips the test when
    // the system's folders refuse it.
    void StoreSaver(const std::wstring& name) { StoreSaver(name, {WindowsFolder()}); }
    void StoreSaver(const std::wstring& name, const std::vector<std::wstring>& folders) {
        for (const std::wstring& folder : folders) {
            savers_.push_back(std::make_unique<SystemFile>(
                TestProgramFolder() + L"\\StandInSaver.scr", folder + L"\\" + name + L".scr"));
            if (!savers_.back()->IsInstalled()) {
                GTEST_SKIP() << "the system's folders cannot be written with these rights";
            }
        }
        Settings.Write(L"General", L"Secondary SS", name);
    }
    // Presses "Settings..." and gives the command line that the saver was started with.
    static std::wstring SettingsLine(const WindowProbe& dialog) {
        Press(dialog, IDC_CMD_SETTINGS);
        EXPECT_TRUE(WaitUntil([] { return ReadText(kStandInKey, kSaverCommandLine).has_value(); }));
        return ReadText(kStandInKey, kSaverCommandLine).value_or(L"");
    }

  private:
    std::vector<std::unique_ptr<SystemFile>> savers_;
};

TEST_F(ConfigurationTest, CreatesTicksReordersAndSavesSets) {
    WindowProbe dialog = OpenConfiguration();
    EXPECT_EQ(SetsOf(dialog), L"");
    AddSet(dialog, L"One", L"C:\\one", L"D:\\one");
    ASSERT_TRUE(SetsBecome(dialog, L">One|"));
    AddSet(dialog, L"Two", L"C:\\two", L"D:\\two");
    ASSERT_TRUE(SetsBecome(dialog, L"One|>Two|"));
    TypeIntoSets(dialog, L' ');
    Press(dialog, IDC_CMD_UP);
    ASSERT_TRUE(SetsBecome(dialog, L">+Two|One|"));
    EXPECT_FALSE(Settings.Read(L"General", L"Sets"));
    EXPECT_TRUE(Closes(dialog, IDOK));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), L"Two,One");
    EXPECT_EQ(Settings.Read(L"One", L"Selected"), L"False");
    EXPECT_EQ(Settings.Read(L"Two", L"Selected"), L"True");
    EXPECT_EQ(Settings.Read(L"Two", L"Source"), L"C:\\two");

    dialog = OpenConfiguration();
    EXPECT_EQ(SetsOf(dialog), L">+Two|One|");
    EXPECT_TRUE(ClosesByItsBox(dialog));
}

TEST_F(ConfigurationTest, ShowsTheStoredSetsAndBeepsAtTheEndsOfTheList) {
    Settings.Write(L"General", L"Sets", L"A,B,C");
    Settings.Write(L"B", L"Selected", L"False");
    const WindowProbe dialog = OpenConfiguration();
    EXPECT_EQ(SetsOf(dialog), L">+A|B|+C|");
    const auto move = [&](int button) {
        Tell(At(dialog, button), BM_CLICK);
        return SetsOf(dialog);
    };
    EXPECT_EQ(move(IDC_CMD_UP), L">+A|B|+C|");
    EXPECT_EQ(move(IDC_CMD_DOWN), L"B|>+A|+C|");
    EXPECT_EQ(move(IDC_CMD_DOWN), L"B|+C|>+A|");
    EXPECT_EQ(move(IDC_CMD_DOWN), L"B|+C|>+A|");
    MakeCurrent(dialog, 0);
    EXPECT_EQ(move(IDC_CMD_DOWN), L"+C|>B|+A|");
    CloseConfiguration();
}

TEST_F(ConfigurationTest, ClosingDiscardsWhatOkWouldHaveWritten) {
    Settings.Write(L"General", L"Sets", L"A,B");
    const WindowProbe dialog = OpenConfiguration();
    TypeIntoSets(dialog, L' ');
    Press(dialog, IDC_CMD_DOWN);
    ASSERT_TRUE(SetsBecome(dialog, L"+B|>A|"));
    EXPECT_TRUE(ClosesByItsBox(dialog));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), L"A,B");
    EXPECT_EQ(Settings.Sections(), std::vector<std::wstring>{L"General"});
}

TEST_F(ConfigurationTest, NewAndThenCancelMakesTheLastSetCurrent) {
    Settings.Write(L"General", L"Sets", L"A,B,C");
    const WindowProbe dialog = OpenConfiguration();
    const WindowProbe properties = Open(dialog, IDC_CMD_NEW, kNewSet);
    EXPECT_FALSE(dialog.IsEnabled());
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    EXPECT_TRUE(SetsBecome(dialog, L"+A|+B|>+C|"));
    EXPECT_TRUE(dialog.IsEnabled());
    EXPECT_TRUE(ClosesByItsBox(dialog));
}

// Whatever was typed there would be stored as a Set that the list never shows.
TEST_F(ConfigurationTest, AnEmptyListHasNoProperties) {
    const WindowProbe dialog = OpenConfiguration();
    for (const int button : {IDC_CMD_PROPERTIES, IDC_CMD_REMOVE}) {
        Tell(At(dialog, button), BM_CLICK);
        EXPECT_TRUE(dialog.IsEnabled()) << "a dialog or a box came up";
    }
    CloseConfiguration();
    EXPECT_TRUE(Settings.Sections().empty());
}

TEST_F(ConfigurationTest, AsksBeforeItRemovesAndKeepsTheSetsSection) {
    Settings.Write(L"General", L"Sets", L"A & B");
    Settings.Write(L"A & B", L"Source", L"C:\\a");
    const WindowProbe dialog = OpenConfiguration();
    // Enter takes the default, which is No.
    for (const bool removes : {false, true}) {
        EXPECT_EQ(SetsOf(dialog), L">+A & B|");
        Press(dialog, IDC_CMD_REMOVE);
        const MessageBoxProbe box = WaitForBox();
        EXPECT_EQ(box.Title(), L"Ambrio");
        EXPECT_EQ(WithoutReturns(box.Text()),
                  L"About to remove A & B\nfrom your list of backup sets.\nAre you sure?");
        EXPECT_EQ(box.Icon(), BoxIcon::Question);
        EXPECT_EQ(box.ButtonTexts(), (std::vector<std::wstring>{L"Yes", L"No"}));
        if (removes) {
            EXPECT_TRUE(box.Press(0));
        } else {
            PressKey(VK_RETURN);
            EXPECT_TRUE(WaitUntil([&] { return !box.Window().Exists(); }));
        }
    }
    EXPECT_TRUE(SetsBecome(dialog, L""));
    EXPECT_TRUE(Closes(dialog, IDOK));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Sets"), L"");
    EXPECT_EQ(Settings.Read(L"A & B", L"Source"), L"C:\\a");
}

TEST_F(ConfigurationTest, OddListsAndNamesSurviveAnOk) {
    std::wstring hundred = L"Set 1";
    for (int i = 2; i <= 100; ++i) {
        hundred += L",Set " + std::to_wstring(i);
    }
    for (const std::wstring& sets : {std::wstring(L"A,, B,"), std::wstring(L"x\\y,a\"b,&c,'d'"),
                                     std::wstring(L"\u0416\u4e2d\u05d0,\u00e9"), hundred}) {
        Settings.Write(L"General", L"Sets", sets);
        const WindowProbe dialog = OpenConfiguration();
        EXPECT_TRUE(Closes(dialog, IDOK));
        EXPECT_TRUE(Ends());
        EXPECT_EQ(Settings.Read(L"General", L"Sets"), sets);
    }
}

TEST_F(ConfigurationTest, ATickThatIsNoBooleanEndsTheProgramWithTheRuntimesError) {
    Settings.Write(L"General", L"Sets", L"A");
    Settings.Write(L"A", L"Selected", L"maybe");
    Start(L"/C");
    const MessageBoxProbe box = WaitForBox();
    EXPECT_EQ(WithoutReturns(box.Text()), L"Run-time error '13':\n\nType mismatch");
    EXPECT_TRUE(box.Press());
    EXPECT_TRUE(Ends());
}

TEST_F(ConfigurationTest, ShowsTheSettingsOfTheChosenSaver) {
    const std::wstring name = L"Ambrio Stand & In";
    const RegistryTreeGuard standIn(kStandInKey);
    StoreSaver(name);
    if (IsSkipped()) {
        return;
    }
    const WindowProbe dialog = OpenConfiguration();
    EXPECT_EQ(TextOf(dialog, IDC_CBO_SS), name);
    EXPECT_TRUE(SettingsLine(dialog).ends_with(L" /c"));
    EXPECT_EQ(ReadNumber(kStandInKey, kSaverShowState), static_cast<DWORD>(SW_SHOWMINIMIZED));
    EXPECT_TRUE(Closes(dialog, IDOK));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Secondary SS"), name);
}

TEST_F(ConfigurationTest, SettingsThatCannotBeStartedAreReportedAndTheDialogStays) {
    const std::wstring broken = Folder.Below(L"broken.scr");
    WriteFileBytes(broken, "no program");
    const SystemFile saver(broken, WindowsFolder() + L"\\Ambrio broken saver.scr");
    if (!saver.IsInstalled()) {
        GTEST_SKIP() << "the system's folders cannot be written with these rights";
    }
    Settings.Write(L"General", L"Secondary SS", L"Ambrio broken saver");
    const WindowProbe dialog = OpenConfiguration();
    Press(dialog, IDC_CMD_SETTINGS);
    const MessageBoxProbe box = WaitForBox();
    EXPECT_EQ(box.Title(), L"Ambrio");
    EXPECT_EQ(box.Text(), L"Error 53 - File not found");
    EXPECT_EQ(box.Icon(), BoxIcon::Exclamation);
    EXPECT_TRUE(box.Press());
    EXPECT_TRUE(dialog.IsEnabled());
    EXPECT_EQ(TextOf(dialog, IDC_CBO_SS), L"Ambrio broken saver");
    CloseConfiguration();
}

TEST_F(ConfigurationTest, ASaverInBothFoldersIsTheOneInTheWindowsFolder) {
    const std::wstring name = L"AmbrioStandIn";
    const RegistryTreeGuard standIn(kStandInKey);
    StoreSaver(name, {WindowsFolder(), SystemFolder()});
    if (IsSkipped()) {
        return;
    }
    const WindowProbe dialog = OpenConfiguration();
    EXPECT_EQ(SettingsLine(dialog), WindowsFolder() + L"\\" + name + L".scr /c");
    CloseConfiguration();
}

TEST_F(ConfigurationTest, ASaverThatIsGoneLeavesNoneCurrentAndIsStoredAsEmpty) {
    Settings.Write(L"General", L"Secondary SS", L"No such saver");
    const WindowProbe dialog = OpenConfiguration();
    EXPECT_EQ(At(dialog, IDC_CBO_SS).Send(CB_GETCURSEL), CB_ERR);
    EXPECT_EQ(TextOf(dialog, IDC_CBO_SS), L"");
    EXPECT_TRUE(Closes(dialog, IDOK));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Settings.Read(L"General", L"Secondary SS"), L"");
}

TEST_F(ConfigurationTest, ASaverThatSortsBeforeNoneIsNotFoundAgain) {
    const std::wstring name = L"!Ambrio Stand In";
    StoreSaver(name);
    if (IsSkipped()) {
        return;
    }
    const WindowProbe dialog = OpenConfiguration();
    const WindowProbe box = At(dialog, IDC_CBO_SS);
    EXPECT_EQ(box.Send(CB_GETCURSEL), CB_ERR);
    Tell(box, CB_SETCURSEL, 0);
    EXPECT_EQ(box.Text(), name);
    Tell(box, CB_SETCURSEL, 1);
    EXPECT_EQ(box.Text(), L"(None)");
    CloseConfiguration();
}

TEST_F(ConfigurationTest, ThereAreNoSettingsOfNoSaver) {
    const WindowProbe dialog = OpenConfiguration();
    EXPECT_EQ(TextOf(dialog, IDC_CBO_SS), L"(None)");
    Tell(At(dialog, IDC_CMD_SETTINGS), BM_CLICK);
    EXPECT_EQ(Program().ProcessCount(), 1U);
    EXPECT_TRUE(dialog.IsEnabled());
    CloseConfiguration();
}

TEST_F(ConfigurationTest, TheTooltipTellsWhereTheLogIs) {
    const WindowProbe dialog = OpenConfiguration();
    EXPECT_TRUE(ShowsTooltip(
        At(dialog, IDC_CHK_LOG_ONLY_ERRORS),
        L"Unless checked, a log (" + Folder.LogFile() + L") is created every time Ambrio runs."));
    CloseConfiguration();
}

class ConfigurationLineTest : public DialogTest,
                              public testing::WithParamInterface<const wchar_t*> {};

TEST_P(ConfigurationLineTest, ShowsTheDialog) {
    Start(GetParam());
    EXPECT_TRUE(ClosesByItsBox(WindowTitled(kConfiguration)));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Program().ExitCode(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Switches, ConfigurationLineTest,
                         testing::Values(L"", L"/C", L"/c:1234", L"/C 1234"));

}  // namespace
}  // namespace ambrio::e2e
