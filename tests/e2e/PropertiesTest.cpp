// The properties of a Set and the file selection behind them, used from outside.

#include <gtest/gtest.h>

#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

class PropertiesTest : public DialogTest {
  protected:
    // The captions of what is ticked, each with a stroke, and whether the rules are locked.
    [[nodiscard]] static std::wstring RulesOf(const WindowProbe& properties) {
        std::wstring text;
        for (const int control :
             {IDC_OPT_DATE_TIME, IDC_OPT_ARCHIVE, IDC_OPT_READ_ONLY, IDC_CHK_CLEAR_ARCHIVE,
              IDC_CHK_DELETE_COPY_ARCHIVE, IDC_CHK_DELETE_COPY_READ_ONLY}) {
            if (At(properties, control).Send(BM_GETCHECK) == BST_CHECKED) {
                text += TextOf(properties, control) + L"|";
            }
        }
        return At(properties, IDC_FRA_COPY_RULES).IsEnabled() ? text : text + L"locked";
    }
    [[nodiscard]] static bool RulesBecome(const WindowProbe& properties,
                                          const std::wstring& expected) {
        return WaitUntil([&] { return RulesOf(properties) == expected; });
    }
    void Cancel(const WindowProbe& properties) {
        EXPECT_TRUE(Closes(properties, IDCANCEL));
        CloseConfiguration();
    }
};

TEST_F(PropertiesTest, ANewSetHasItsDefaults) {
    const WindowProbe properties = Open(OpenConfiguration(), IDC_CMD_NEW, kNewSet);
    EXPECT_EQ(TextOf(properties, IDC_TXT_SET), L"");
    EXPECT_TRUE(At(properties, IDC_TXT_SET).IsEnabled());
    EXPECT_EQ(TextOf(properties, IDC_TXT_FOLDER_0), L"C:\\My Documents");
    EXPECT_EQ(TextOf(properties, IDC_TXT_FOLDER_1), L"F:\\My Documents");
    EXPECT_EQ(At(properties, IDC_CHK_RECURSIVE).Send(BM_GETCHECK), BST_CHECKED);
    EXPECT_EQ(At(properties, IDC_CHK_OVERWRITE_RO).Send(BM_GETCHECK), BST_UNCHECKED);
    EXPECT_EQ(TextOf(properties, IDC_LST_SCHEME), L"Set my own");
    EXPECT_EQ(RulesOf(properties), L"Date/Time|");
    Cancel(properties);
    EXPECT_TRUE(Settings.Sections().empty());
}

TEST_F(PropertiesTest, ASchemeLocksItsRulesWhichSetMyOwnKeepsAndUnlocks) {
    const WindowProbe properties = OpenProperties(L"S");
    const std::wstring differential = L"Archive Bit|Delete copy when source no longer 'archive'|";
    Choose(properties, IDC_LST_SCHEME, 2);
    EXPECT_TRUE(RulesBecome(properties, differential + L"locked"));
    EXPECT_FALSE(At(properties, IDC_OPT_DATE_TIME).IsEnabled());
    Choose(properties, IDC_LST_SCHEME, 0);
    EXPECT_TRUE(RulesBecome(properties, differential));
    Choose(properties, IDC_LST_SCHEME, 3);
    EXPECT_TRUE(RulesBecome(properties, L"Not Read Only|Delete copy when source read only|locked"));
    Choose(properties, IDC_LST_SCHEME, 1);
    EXPECT_TRUE(RulesBecome(properties, L"Date/Time|locked"));
    Cancel(properties);
}

// Where it is most needed: it tells what the box would do if its rule were chosen.
TEST_F(PropertiesTest, ADisabledBoxHasItsTooltipToo) {
    const WindowProbe properties = OpenProperties(L"S");
    const WindowProbe box = At(properties, IDC_CHK_CLEAR_ARCHIVE);
    ASSERT_FALSE(box.IsEnabled());
    const std::wstring tip = L"CAUTION: other backup routines may rely on the archive bit.";
    EXPECT_TRUE(ShowsTooltip(box, tip));
    Press(properties, IDC_OPT_ARCHIVE);
    EXPECT_TRUE(WaitUntil([&] { return box.IsEnabled(); }));
    EXPECT_TRUE(ShowsTooltip(At(properties, IDC_CHK_RECURSIVE),
                             L"Backup the contents of all this folders sub-folders"));
    EXPECT_TRUE(ShowsTooltip(box, tip));
    Cancel(properties);
}

TEST_F(PropertiesTest, AnUnknownSchemeIsShownAsSetMyOwn) {
    Settings.Write(L"S", L"Scheme", L"Mirror");
    Settings.Write(L"S", L"CopyType", L"ReadOnly");
    const WindowProbe properties = OpenProperties(L"S");
    EXPECT_EQ(TextOf(properties, IDC_LST_SCHEME), L"Set my own");
    EXPECT_EQ(RulesOf(properties), L"Date/Time|");
    Cancel(properties);
    EXPECT_EQ(Settings.Read(L"S", L"Scheme"), L"Mirror");
}

TEST_F(PropertiesTest, ADeletionThatWasSavedIsAskedForAnew) {
    const std::wstring name = L"S";
    WindowProbe properties = OpenProperties(name);
    Choose(properties, IDC_LST_SCHEME, 2);
    EXPECT_TRUE(WaitUntil([&] { return !At(properties, IDC_FRA_COPY_RULES).IsEnabled(); }));
    for (const wchar_t* stored : {L"Yes", L"No"}) {
        EXPECT_TRUE(Closes(properties, IDOK));
        EXPECT_EQ(Settings.Read(name, L"DeleteCopyArchiveBit"), stored);
        properties = Open(WindowTitled(kConfiguration), IDC_CMD_PROPERTIES, name + L" Properties");
        EXPECT_EQ(RulesOf(properties), L"Archive Bit|locked");
    }
    Cancel(properties);
}

TEST_F(PropertiesTest, SavesAnExistingSetUnderItsName) {
    Settings.Write(L"S", L"DeleteCopyArchiveBit", L"Yes");
    Settings.Write(L"S", L"CopyType", L"ArchiveBit");
    const WindowProbe properties = OpenProperties(L"S");
    EXPECT_FALSE(At(properties, IDC_TXT_SET).IsEnabled());
    SetText(properties, IDC_TXT_FOLDER_0, L"  \\\\server\\share\\x ");
    EXPECT_TRUE(Closes(properties, IDOK));
    CloseConfiguration();
    EXPECT_EQ(Settings.Read(L"S", L"Source"), L"\\\\server\\share\\x");
    EXPECT_EQ(Settings.Read(L"S", L"DeleteCopyArchiveBit"), L"No");
    EXPECT_EQ(Settings.Read(L"S", L"CopyType"), L"ArchiveBit");
    EXPECT_FALSE(Settings.Read(L"S", L"DeleteCopyArchive"));
    EXPECT_FALSE(Settings.Read(L"S", L"Selected"));
}

TEST_F(PropertiesTest, ANameIsTypedOnlyAsFarAsTheStoreTakesIt) {
    const WindowProbe properties = Open(OpenConfiguration(), IDC_CMD_NEW, kNewSet);
    for (int i = 0; i < 260; ++i) {
        Tell(At(properties, IDC_TXT_SET), WM_CHAR, L'n');
    }
    const std::wstring longest(255, L'n');
    EXPECT_EQ(TextOf(properties, IDC_TXT_SET), longest);
    EXPECT_TRUE(Closes(properties, IDOK));
    EXPECT_TRUE(SetsBecome(WindowTitled(kConfiguration), L">" + longest + L"|"));
    CloseConfiguration();
    EXPECT_EQ(Settings.Read(longest, L"Source"), L"C:\\My Documents");
}

// Such as one that another program puts there.
TEST_F(PropertiesTest, ANameThatTheStoreRefusesIsReportedAndTheDialogStays) {
    const WindowProbe configuration = OpenConfiguration();
    const WindowProbe properties = Open(configuration, IDC_CMD_NEW, kNewSet);
    SetText(properties, IDC_TXT_SET, std::wstring(300, L'n'));
    Press(properties, IDOK);
    const MessageBoxProbe box = WaitForBox();
    EXPECT_EQ(box.Title(), L"Ambrio");
    EXPECT_TRUE(box.Text().starts_with(L"Error ")) << Utf8(box.Text());
    EXPECT_EQ(box.Icon(), BoxIcon::Exclamation);
    EXPECT_TRUE(box.Press());
    EXPECT_TRUE(properties.Exists());
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    EXPECT_TRUE(SetsBecome(configuration, L""));
    CloseConfiguration();
    EXPECT_TRUE(Settings.Sections().empty());
}

TEST_F(PropertiesTest, TheFileSelectionOnlyShows) {
    Settings.Write(L"S", L"Include", L"*.txt; *.doc");
    const WindowProbe properties = OpenProperties(L"S");
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
    Cancel(properties);
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
    Cancel(properties);
}

}  // namespace
}  // namespace ambrio::e2e
