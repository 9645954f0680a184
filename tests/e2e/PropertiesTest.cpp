// The properties of a Set and the two dialogs behind them, used from outside.

#include <gtest/gtest.h>

#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Files.h"

namespace ambrio::e2e {
namespace {

class PropertiesTest : public DialogTest {
  protected:
    // Opens the properties of the one Set there is.
    WindowProbe OpenSet(const std::wstring& name) {
        Settings.Write(L"General", L"Sets", name);
        return Open(OpenConfiguration(), IDC_CMD_PROPERTIES, name + L" Properties");
    }
    void CloseAll() {
        EXPECT_TRUE(ClosesByItsBox(WindowTitled(kConfiguration)));
        EXPECT_TRUE(Ends());
    }
};

TEST_F(PropertiesTest, SavesAnExistingSetUnderItsName) {
    Settings.Write(L"S", L"DeleteCopyArchiveBit", L"Yes");
    Settings.Write(L"S", L"CopyType", L"ArchiveBit");
    const WindowProbe properties = OpenSet(L"S");
    EXPECT_FALSE(At(properties, IDC_TXT_SET).IsEnabled());
    SetText(properties, IDC_TXT_FOLDER_0, L"  \\\\server\\share\\x ");
    EXPECT_TRUE(Closes(properties, IDOK));
    CloseAll();
    EXPECT_EQ(Settings.Read(L"S", L"Source"), L"\\\\server\\share\\x");
    EXPECT_EQ(Settings.Read(L"S", L"DeleteCopyArchiveBit"), L"No");
    EXPECT_EQ(Settings.Read(L"S", L"CopyType"), L"ArchiveBit");
    EXPECT_FALSE(Settings.Read(L"S", L"DeleteCopyArchive"));
    EXPECT_FALSE(Settings.Read(L"S", L"Selected"));
}

TEST_F(PropertiesTest, ANameThatTheStoreRefusesIsReportedAndTheDialogStays) {
    const WindowProbe configuration = OpenConfiguration();
    const WindowProbe properties = Open(configuration, IDC_CMD_NEW, kNewSet);
    SetText(properties, IDC_TXT_SET, std::wstring(300, L'n'));
    Press(properties, IDOK);
    EXPECT_TRUE(WaitForBox().Press());
    EXPECT_TRUE(properties.Exists());
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    EXPECT_TRUE(SetsBecome(configuration, L""));
    CloseAll();
}

TEST_F(PropertiesTest, ABrowsedFolderIsTheOpenOneAndCancelLeavesTheBox) {
    const std::wstring folder = Folder.Below(L"Source");
    MakeFolders(folder + L"\\Inner");
    Settings.Write(L"S", L"Source", folder);
    const WindowProbe properties = OpenSet(L"S");
    const std::wstring title = L"Choose S source folder";
    for (const bool opensInner : {false, true}) {
        const WindowProbe browse = Open(properties, IDC_CMD_BROWSE_0, title);
        const WindowProbe list = At(browse, IDC_DIR1);
        const LRESULT last = list.Send(LB_GETCOUNT).value_or(1) - 1;
        Tell(list, LB_SETCURSEL, static_cast<WPARAM>(last));
        if (opensInner) {
            Tell(list, WM_KEYDOWN, VK_RETURN);
        }
        EXPECT_TRUE(Closes(browse, IDOK));
        EXPECT_EQ(TextOf(properties, IDC_TXT_FOLDER_0), opensInner ? folder + L"\\Inner" : folder);
    }
    SetText(properties, IDC_TXT_FOLDER_0, L"typed");
    EXPECT_TRUE(Closes(Open(properties, IDC_CMD_BROWSE_0, title), IDCANCEL));
    EXPECT_EQ(TextOf(properties, IDC_TXT_FOLDER_0), L"typed");
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    CloseAll();
}

TEST_F(PropertiesTest, BrowsingForANewSetHasTwoBlanksInItsCaption) {
    const WindowProbe properties = Open(OpenConfiguration(), IDC_CMD_NEW, kNewSet);
    EXPECT_TRUE(
        Closes(Open(properties, IDC_CMD_BROWSE_1, L"Choose  destination folder"), IDCANCEL));
    EXPECT_EQ(TextOf(properties, IDC_TXT_FOLDER_1), L"F:\\My Documents");
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    CloseAll();
}

TEST_F(PropertiesTest, TheFileSelectionOnlyShows) {
    Settings.Write(L"S", L"Include", L"*.txt; *.doc");
    const WindowProbe properties = OpenSet(L"S");
    const WindowProbe selection =
        Open(properties, IDC_CMD_ADVANCED, L"S properties - File selection");
    EXPECT_EQ(TextOf(selection, IDC_TXT_INCLUDE), L"*.txt; *.doc");
    EXPECT_EQ(TextOf(selection, IDC_TXT_EXCLUDE), L"");
    SetText(selection, IDC_TXT_INCLUDE, L"edited");
    for (const int button : {IDOK, IDCANCEL}) {
        Tell(At(selection, button), BM_CLICK);
        EXPECT_TRUE(selection.Exists());
    }
    EXPECT_TRUE(ClosesByItsBox(selection));
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    CloseAll();
    EXPECT_EQ(Settings.Read(L"S", L"Include"), L"*.txt; *.doc");
    EXPECT_EQ(Settings.Keys(L"S"), std::vector<std::wstring>{L"Include"});
}

TEST_F(PropertiesTest, TheFileSelectionOfANewSetBearsTheTypedName) {
    Settings.Write(L"Typed", L"Include", L"*.txt");
    const WindowProbe properties = Open(OpenConfiguration(), IDC_CMD_NEW, kNewSet);
    SetText(properties, IDC_TXT_SET, L" Typed ");
    const WindowProbe selection =
        Open(properties, IDC_CMD_ADVANCED, L"Typed properties - File selection");
    EXPECT_EQ(TextOf(selection, IDC_TXT_INCLUDE), L"");
    EXPECT_TRUE(ClosesByItsBox(selection));
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    CloseAll();
}

}  // namespace
}  // namespace ambrio::e2e
