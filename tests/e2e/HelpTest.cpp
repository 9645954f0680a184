// The help button and the help key.

#include <gtest/gtest.h>

#include <functional>
#include <optional>

#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/NativeFiles.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/e2e/support/Text.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

class HelpTest : public DialogTest {
  protected:
    // Whether one of the dialog's controls gets the keys.
    [[nodiscard]] static bool HasFocus(const WindowProbe& dialog) {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(0, &info);
        return IsChild(dialog.Handle(), info.hwndFocus) != FALSE;
    }
    // A box of what shows the help, which is another program.
    [[nodiscard]] std::optional<MessageBoxProbe> BoxOfTheViewer() {
        for (const DWORD process : Program().StartedProcessIds()) {
            if (const auto box = MessageBoxProbe::Find(process)) {
                return box;
            }
        }
        return std::nullopt;
    }
    // All that stands in the windows of the viewer.
    [[nodiscard]] std::wstring ShownByTheViewer() {
        std::wstring shown;
        for (const DWORD process : Program().StartedProcessIds()) {
            for (const WindowProbe& window : TopLevelWindows(process)) {
                for (const WindowProbe& part : window.Descendants()) {
                    shown += part.Text() + L"|";
                }
            }
        }
        return shown;
    }
    // Answers No to what the viewer asks; its text is added to what was said.
    void Dismiss(const MessageBoxProbe& box) {
        said_ += box.Text();
        EXPECT_TRUE(box.Press(box.ButtonTexts().size() - 1));
    }
    // Waits for a window while everything that the viewer says is dismissed.
    [[nodiscard]] bool Appears(const std::wstring& title) {
        return WaitUntil([&] {
            if (const auto box = BoxOfTheViewer()) {
                Dismiss(*box);
            }
            return WaitForWindow(Program().ProcessId(), title, Milliseconds(0)).has_value();
        });
    }

    // What the viewer says when the help of this program, which it cannot show, is asked for.
    std::wstring SaidOfTheHelpOf(const ProgramFolder& folder) {
        said_.clear();
        Start(L"/C", folder);
        const WindowProbe dialog = WindowTitled(kConfiguration);
        Press(dialog, IDC_CMD_HELP);
        Press(dialog, IDC_CMD_ABOUT);
        EXPECT_TRUE(Appears(L"About Ambrio"));
        EXPECT_TRUE(Closes(WindowTitled(L"About Ambrio"), IDOK));
        CloseConfiguration();
        return said_;
    }

    // Presses F1 in the dialog, which is the front one, and then closes it.
    void ExpectHelpOnF1(const WindowProbe& dialog) {
        said_.clear();
        // Wine 10 leaves no program in front once the viewer's boxes are gone; a user would click.
        SetForegroundWindow(dialog.Handle());
        EXPECT_TRUE(WaitUntil([&] { return HasFocus(dialog); })) << Utf8(dialog.Text());
        PressKey(VK_F1);
        const auto dismissUntil = [this](const std::function<bool()>& condition) {
            return WaitUntil([&] {
                if (const auto box = BoxOfTheViewer()) {
                    Dismiss(*box);
                }
                return condition();
            });
        };
        EXPECT_TRUE(dismissUntil([&] { return said_.find(L"Ambrio.HLP") != std::wstring::npos; }))
            << Utf8(dialog.Text());
        // It answers again when the viewer has said all that it has to say.
        EXPECT_TRUE(dismissUntil([&] { return dialog.Send(WM_NULL, 0, 0, kWhile).has_value(); }));
        EXPECT_TRUE(ClosesByItsBox(dialog)) << Utf8(dialog.Text());
    }

    std::wstring said_;
};

TEST_F(HelpTest, AMissingFileIsTheViewersToReportAndTheDialogGoesOn) {
    if (!RunsOnWine()) {
        GTEST_SKIP() << "this system may have no viewer";
    }
    Settings.Write(L"General", L"Sets", L"A");
    const WindowProbe dialog = OpenConfiguration();
    Press(dialog, IDC_CMD_HELP);
    // The second press waits behind the first, so this comes when the help is done with.
    Press(dialog, IDC_CMD_ABOUT);
    ASSERT_TRUE(Appears(L"About Ambrio"));
    EXPECT_NE(said_.find(L"Ambrio.HLP"), std::wstring::npos) << Utf8(said_);
    EXPECT_FALSE(MessageBoxProbe::Find(Program().ProcessId()));
    EXPECT_TRUE(Closes(WindowTitled(L"About Ambrio"), IDOK));
    EXPECT_TRUE(dialog.IsEnabled());
    TypeIntoSets(dialog, L' ');
    EXPECT_TRUE(SetsBecome(dialog, L">A|"));
    EXPECT_TRUE(Closes(dialog, IDOK));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Program().ExitCode(), 0U);
    EXPECT_EQ(Settings.Read(L"A", L"Selected"), L"False");
}

TEST_F(HelpTest, OpensAtItsContentsAndGoesWithTheDialog) {
    if (!RunsOnWine()) {
        GTEST_SKIP() << "this system has no viewer whose page can be read";
    }
    WriteFileBytes(Folder.Below(L"Ambrio.HLP"),
                   ReadFileBytes(TestProgramFolder() + L"\\Ambrio.HLP"));
    const WindowProbe dialog = OpenConfiguration();
    Press(dialog, IDC_CMD_HELP);
    EXPECT_TRUE(WaitUntil([&] {
        return ShownByTheViewer().find(L"Questions and answers") != std::wstring::npos;
    })) << Utf8(ShownByTheViewer());
    const std::wstring shown = ShownByTheViewer();
    EXPECT_NE(shown.find(L"What Ambrio does"), std::wstring::npos) << Utf8(shown);
    EXPECT_EQ(shown.find(L"Move Up"), std::wstring::npos) << Utf8(shown);
    EXPECT_FALSE(Program().StartedProcessIds().empty());
    CloseConfiguration();
    EXPECT_TRUE(WaitUntil([&] { return Program().StartedProcessIds().empty(); }));
}

TEST_F(HelpTest, IsThereOnF1InEveryDialog) {
    if (!RunsOnWine()) {
        GTEST_SKIP() << "this system has no viewer that tells what it looks for";
    }
    const WindowProbe properties = OpenProperties(L"S");
    const WindowProbe configuration = WindowTitled(kConfiguration);
    ExpectHelpOnF1(Open(properties, IDC_CMD_BROWSE_0, L"Choose S source folder"));
    ExpectHelpOnF1(Open(properties, IDC_CMD_ADVANCED, L"S properties - File selection"));
    ExpectHelpOnF1(properties);
    ExpectHelpOnF1(Open(configuration, IDC_CMD_ABOUT, L"About Ambrio"));
    ExpectHelpOnF1(configuration);
    EXPECT_TRUE(Ends());
}

TEST_F(HelpTest, IsLookedForUnderTheProgramsTitleWhateverTheFileIsCalled) {
    if (!RunsOnWine()) {
        GTEST_SKIP() << "this system has no viewer that tells what it looks for";
    }
    const ProgramFolder renamed(L"Another name.scr");
    EXPECT_NE(SaidOfTheHelpOf(renamed).find(renamed.Below(L"Ambrio.HLP")), std::wstring::npos)
        << Utf8(said_);
}

// A 32-bit program is shown another folder in the place of this one.
TEST_F(HelpTest, IsFoundBesideAProgramInTheRealSystemFolder) {
    if (!RunsOnWine() || !HasTwoSystemFolders()) {
        GTEST_SKIP() << "this system has one System folder only, or no viewer that tells what it "
                        "looks for";
    }
    const NativeFiles native;
    const ProgramFolder there(L"Ambrio.scr", SystemFolder());
    const std::wstring ofAMissingFile = SaidOfTheHelpOf(there);
    WriteFileBytes(there.Below(L"Ambrio.HLP"), "no help");
    const std::wstring ofAnyFile = SaidOfTheHelpOf(there);
    EXPECT_NE(ofAMissingFile, L"");
    EXPECT_NE(ofAnyFile, L"");
    EXPECT_NE(ofAMissingFile, ofAnyFile);
}

}  // namespace
}  // namespace ambrio::e2e
