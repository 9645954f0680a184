// The help button.

#include <gtest/gtest.h>

#include <optional>

#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Text.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

class HelpTest : public DialogTest {
  protected:
    // A box of what shows the help, which is another program.
    [[nodiscard]] std::optional<MessageBoxProbe> BoxOfTheViewer() {
        for (const DWORD process : Program().StartedProcessIds()) {
            if (const auto box = MessageBoxProbe::Find(process)) {
                return box;
            }
        }
        return std::nullopt;
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

    std::wstring said_;
};

TEST_F(HelpTest, AMissingFileIsTheViewersToReportAndTheDialogGoesOn) {
    Settings.Write(L"General", L"Sets", L"A");
    const WindowProbe dialog = OpenConfiguration();
    Press(dialog, IDC_CMD_HELP);
    // The second press waits behind the first, so this comes when the help is done with.
    Press(dialog, IDC_CMD_ABOUT);
    ASSERT_TRUE(Appears(L"About Ambrio"));
    if (RunsOnWine()) {
        EXPECT_NE(said_.find(L"Ambrio.HLP"), std::wstring::npos) << Utf8(said_);
    }
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

TEST_F(HelpTest, IsLookedForUnderTheProgramsTitleWhateverTheFileIsCalled) {
    if (!RunsOnWine()) {
        GTEST_SKIP() << "this system has no viewer that tells what it looks for";
    }
    const ProgramFolder renamed(L"Another name.scr");
    Start(L"/C", renamed);
    const WindowProbe dialog = WindowTitled(L"Ambrio Configuration");
    Press(dialog, IDC_CMD_HELP);
    Press(dialog, IDC_CMD_ABOUT);
    ASSERT_TRUE(Appears(L"About Ambrio"));
    EXPECT_NE(said_.find(renamed.Below(L"Ambrio.HLP")), std::wstring::npos) << Utf8(said_);
    EXPECT_TRUE(Closes(WindowTitled(L"About Ambrio"), IDOK));
    CloseConfiguration();
}

}  // namespace
}  // namespace ambrio::e2e
