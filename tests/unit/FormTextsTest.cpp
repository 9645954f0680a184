#include <array>

#include "config/Form.h"
#include "config/frmAbout.h"
#include "config/frmBrowse.h"
#include "config/frmConfiguration.h"
#include "config/frmIncludeExclude.h"
#include "config/frmProperties.h"
#include "resources/DialogIds.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

// What a control must show; an empty tip means that it has none.
struct Expected {
    int Control;
    const wchar_t* Caption;
    const wchar_t* Tip;
};

void ExpectTexts(const Form& form, std::initializer_list<Expected> controls) {
    for (const Expected& expected : controls) {
        const HWND control = GetDlgItem(form.Handle(), expected.Control);
        ASSERT_NE(nullptr, control) << expected.Control;
        EXPECT_EQ(expected.Caption, WindowText(control));
        EXPECT_EQ(expected.Tip, TooltipOf(form.TooltipWindow(), control)) << expected.Caption;
    }
}

class FormTextsTest : public FormTest {};

TEST_F(FormTextsTest, OfTheConfigurationDialog) {
    frmConfiguration form(Context);
    form.Load(nullptr);
    EXPECT_EQ(L"Ambrio Configuration", WindowText(form.Handle()));
    ExpectTexts(
        form,
        {{IDC_LST_SETS, L"",
          L"List of backup instructions 'Sets'. Sets will be executed in this sequence."},
         {IDC_CMD_UP, L"Move Up", L"Move the selected Set up the list."},
         {IDC_CMD_DOWN, L"Move Down", L"Move the selected Set down the list."},
         {IDC_CMD_NEW, L"New Set", L"Create a new backup Set."},
         {IDC_CMD_REMOVE, L"Remove", L"Delete the selected Set."},
         {IDC_CMD_PROPERTIES, L"Properties", L"Display/set the properties of the selected set."},
         {IDC_CHK_LOG_ONLY_ERRORS, L"Only create log when errors occur",
          L"Unless checked, a log (Ambrio.log) is created in your Windows folder every time Ambrio "
          L"runs."},
         {IDC_CHK_CLEAR_LOG_DAILY, L"Clear log every day",
          L"The first time it's used on a given day the log will be cleared."},
         {IDC_FRAME1, L"Secondary Screen Saver", L""},
         {IDC_CBO_SS, L"(None)", L""},
         {IDC_CMD_SETTINGS, L"Settings...", L""},
         {IDOK, L"OK", L"Save the current settings and exit"},
         {IDC_CMD_HELP, L"Help", L""},
         {IDC_CMD_ABOUT, L"About...", L"View the 'About Ambrio' dialog"}});
    EXPECT_EQ(nullptr, GetDlgItem(form.Handle(), IDCANCEL));
}

TEST_F(FormTextsTest, OfTheProperties) {
    frmProperties form(Context);
    form.Load(nullptr);
    constexpr const wchar_t* kDeleteTip =
        L"Check this to ensure that you don't keep copies longer than necessary";
    constexpr const wchar_t* kBrowseTip = L"Click here to browse your folders";
    ExpectTexts(
        form,
        {{IDC_TXT_SET, L"", L"Enter your Set name here"},
         {IDC_TXT_FOLDER_0, L"C:\\My Documents", L"The folder you wish to back up."},
         {IDC_TXT_FOLDER_1, L"F:\\My Documents",
          L"The folder into which the files will be copied, usually on a different drive or pc."},
         {IDC_CMD_BROWSE_0, L"Browse...", kBrowseTip},
         {IDC_CMD_BROWSE_1, L"Browse...", kBrowseTip},
         {IDC_LST_SCHEME, L"Set my own", L"Choose a pre-defined scheme, or create your own"},
         {IDC_CHK_RECURSIVE, L"Recursive", L"Backup the contents of all this folders sub-folders"},
         {IDC_CHK_OVERWRITE_RO, L"Overwrite Read Only files", L""},
         {IDC_FRA_COPY_RULES, L"Copy Rules", L""},
         {IDC_OPT_DATE_TIME, L"Date/Time",
          L"Copy a file if its date and time is more recent than the backup one, or a backup copy "
          L"does not yet exist."},
         {IDC_OPT_ARCHIVE, L"Archive Bit",
          L"Copy the file if it has changed since it was last backed up.   NB other backup "
          L"routines may use the archive bit."},
         {IDC_OPT_READ_ONLY, L"Not Read Only", L"Copy the file if is not flagged 'Read-Only'"},
         {IDC_CHK_CLEAR_ARCHIVE, L"Clear Archive bit after copy",
          L"CAUTION: other backup routines may rely on the archive bit."},
         {IDC_CHK_DELETE_COPY_ARCHIVE, L"Delete copy when source no longer 'archive'", kDeleteTip},
         {IDC_CHK_DELETE_COPY_READ_ONLY, L"Delete copy when source read only", kDeleteTip},
         {IDC_CMD_ADVANCED, L"Advanced...", L""},
         {IDOK, L"OK", L"Save these Set rules and return to the Configuration dialog"},
         {IDCANCEL, L"Cancel", L"Return to the Configuration dialog without saving these rules."}});
    for (const wchar_t* label : {L"Set:", L"Source:", L"Destination:", L"Scheme"}) {
        EXPECT_NE(nullptr, FindWindowExW(form.Handle(), nullptr, L"Static", label)) << label;
    }
}

TEST_F(FormTextsTest, OfTheBrowseDialog) {
    Context.BrowseIndex = 1;
    frmBrowse form(Context, nullptr);
    form.Load(nullptr);
    EXPECT_EQ(L"Choose  destination folder", WindowText(form.Handle()));
    ExpectTexts(form, {{IDOK, L"OK", L""}, {IDCANCEL, L"Cancel", L""}});
}

TEST_F(FormTextsTest, OfTheFileSelection) {
    Store.Values[{L"S", L"Include"}] = L"*.txt;a&b";
    Store.Values[{L"S", L"Exclude"}] = L"thumbs.db";
    Context.CurrentSetName = L"S";
    frmIncludeExclude form(Context);
    form.Load(nullptr);
    form.Init(L"Typed & more");
    EXPECT_EQ(L"Typed & more properties - File selection", WindowText(form.Handle()));
    ExpectTexts(
        form,
        {{IDC_LBL_INCLUDE, L"Include:-", L""},
         {IDC_TXT_INCLUDE, L"*.txt;a&b", L""},
         {IDC_LBL_EXCLUDE, L"Exclude:-", L""},
         {IDC_TXT_EXCLUDE, L"thumbs.db", L""},
         {IDC_LABEL1,
          L"Add complete filenames (eg thumbs.db) or standard matching patterns (using * and ?).  "
          L"Separate the entries with ; (semicolon).  An empty 'Include' list means include all.  "
          L"An empty 'Exclude' list means exclude  none.  The include rules will be applied first "
          L"and then any selected files which match the Exclude list will be excluded.",
          L""},
         {IDOK, L"OK", L""},
         {IDCANCEL, L"Cancel", L""}});
    // The buttons do nothing, and so do Enter and Escape.
    for (const int button : {IDOK, IDCANCEL}) {
        ControlProbe(form.Handle(), IDC_TXT_INCLUDE).SetText(L"edited");
        ControlProbe(form.Handle(), button).Click();
        EXPECT_NE(nullptr, form.Handle());
    }
    SendMessageW(form.Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(nullptr, form.Handle());
    EXPECT_TRUE(Store.Writes.empty());
}

TEST_F(FormTextsTest, OfTheAboutBox) {
    frmAbout form(Context);
    form.Load(nullptr);
    EXPECT_EQ(L"About Ambrio", WindowText(form.Handle()));
    ExpectTexts(form, {{IDC_LBL_TITLE, L"Ambrio", L""},
                       {IDC_ABOUT_LABEL2, App.HelpPage.c_str(), L""},
                       {IDC_CMD_SYS_INFO, L"&System Info...", L""},
                       {IDOK, L"OK", L""}});
    const std::wstring version = ControlProbe(form.Handle(), IDC_LBL_VERSION).Text();
    EXPECT_EQ(0U, version.find(L"Version "));
    for (const int control : {IDC_LBL_DISCLAIMER, IDC_ABOUT_LABEL1, IDC_ABOUT_LABEL3}) {
        EXPECT_NE(L"", ControlProbe(form.Handle(), control).Text()) << control;
    }
    EXPECT_NE(0, ControlProbe(form.Handle(), IDC_PIC_ICON).Send(STM_GETICON));
    ControlProbe(form.Handle(), IDOK).Click();
    EXPECT_EQ(nullptr, form.Handle());
}

TEST_F(FormTextsTest, EveryControlLiesInsideItsDialogAndNoTwoOfAKindMeet) {
    frmConfiguration configuration(Context);
    frmProperties properties(Context);
    frmBrowse browse(Context, nullptr);
    frmIncludeExclude selection(Context);
    frmAbout about(Context);
    for (Form* form :
         std::initializer_list<Form*>{&configuration, &properties, &browse, &selection, &about}) {
        form->Load(nullptr);
        RECT client = {};
        GetClientRect(form->Handle(), &client);
        std::vector<RECT> places;
        for (HWND child = GetWindow(form->Handle(), GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            RECT place = {};
            GetWindowRect(child, &place);
            MapWindowPoints(nullptr, form->Handle(), reinterpret_cast<POINT*>(&place), 2);
            RECT common = {};
            IntersectRect(&common, &client, &place);
            EXPECT_TRUE(EqualRect(&common, &place)) << GetDlgCtrlID(child);
            const LONG style = GetWindowLongW(child, GWL_STYLE);
            // What is hidden names a list to screen readers.
            if ((style & WS_VISIBLE) == 0) {
                continue;
            }
            // Frames hold other controls.
            const bool isFrame = (style & BS_TYPEMASK) == BS_GROUPBOX &&
                                 SendMessageW(child, WM_GETDLGCODE, 0, 0) == DLGC_STATIC;
            if (isFrame) {
                continue;
            }
            for (const RECT& other : places) {
                EXPECT_FALSE(IntersectRect(&common, &other, &place)) << GetDlgCtrlID(child);
            }
            places.push_back(place);
        }
    }
}

}  // namespace
}  // namespace ambrio
