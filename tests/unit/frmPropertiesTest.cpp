#include "config/frmProperties.h"

#include <algorithm>
#include <initializer_list>

#include "resources/DialogIds.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

class frmPropertiesTest : public FormTest {
  protected:
    void Open(const std::wstring& name) {
        Context.CurrentSetName = name;
        form_.Load(nullptr);
    }
    [[nodiscard]] ControlProbe At(int control) const { return {form_.Handle(), control}; }

    // The chosen option and the ticks, then what can be changed.
    void ExpectRules(int chosen, std::initializer_list<int> ticked,
                     std::initializer_list<int> enabled) {
        const auto has = [](std::initializer_list<int> list, int control) {
            return std::find(list.begin(), list.end(), control) != list.end();
        };
        for (const int option : {IDC_OPT_DATE_TIME, IDC_OPT_ARCHIVE, IDC_OPT_READ_ONLY}) {
            EXPECT_EQ(option == chosen, At(option).IsTicked()) << option;
            EXPECT_EQ(has(enabled, IDC_FRA_COPY_RULES), At(option).IsEnabled()) << option;
        }
        for (const int box :
             {IDC_CHK_CLEAR_ARCHIVE, IDC_CHK_DELETE_COPY_ARCHIVE, IDC_CHK_DELETE_COPY_READ_ONLY}) {
            EXPECT_EQ(has(ticked, box), At(box).IsTicked()) << box;
            EXPECT_EQ(has(enabled, box), At(box).IsEnabled()) << box;
        }
        EXPECT_EQ(has(enabled, IDC_FRA_COPY_RULES), At(IDC_FRA_COPY_RULES).IsEnabled());
    }

    frmProperties form_{Context};
};

TEST_F(frmPropertiesTest, ANewSetCanBeNamed) {
    Open(L"");
    EXPECT_EQ(L"New Set Properties", WindowText(form_.Handle()));
    EXPECT_TRUE(At(IDC_TXT_SET).IsEnabled());
    EXPECT_TRUE(At(IDC_CHK_RECURSIVE).IsTicked());
    EXPECT_FALSE(At(IDC_CHK_OVERWRITE_RO).IsTicked());
    ExpectRules(IDC_OPT_DATE_TIME, {}, {IDC_FRA_COPY_RULES});
    EXPECT_EQ(4, At(IDC_LST_SCHEME).Send(CB_GETCOUNT));
}

TEST_F(frmPropertiesTest, AnExistingSetKeepsItsName) {
    Open(L"S");
    EXPECT_EQ(L"S Properties", WindowText(form_.Handle()));
    EXPECT_FALSE(At(IDC_TXT_SET).IsEnabled());
    EXPECT_EQ(L"S", At(IDC_TXT_SET).Text());
    At(IDOK).Click();
    EXPECT_EQ(L"S", Context.CurrentSetName);
}

TEST_F(frmPropertiesTest, ASchemeSetsTheRulesAndLocksThemUntilSetMyOwn) {
    Open(L"");
    At(IDC_LST_SCHEME).Choose(2);
    ExpectRules(IDC_OPT_ARCHIVE, {IDC_CHK_DELETE_COPY_ARCHIVE}, {});
    At(IDC_LST_SCHEME).Choose(0);
    ExpectRules(IDC_OPT_ARCHIVE, {IDC_CHK_DELETE_COPY_ARCHIVE},
                {IDC_FRA_COPY_RULES, IDC_CHK_CLEAR_ARCHIVE, IDC_CHK_DELETE_COPY_ARCHIVE});
    At(IDC_LST_SCHEME).Choose(3);
    ExpectRules(IDC_OPT_READ_ONLY, {IDC_CHK_DELETE_COPY_READ_ONLY}, {});
    At(IDC_LST_SCHEME).Choose(1);
    ExpectRules(IDC_OPT_DATE_TIME, {}, {});
}

TEST_F(frmPropertiesTest, ATypedSchemeIsAppliedWhenItIsOneAndStoredInAnyCase) {
    Open(L"");
    At(IDC_TXT_SET).SetText(L"S");
    At(IDC_LST_SCHEME).SetText(L"Version Control");
    At(IDC_LST_SCHEME).Notify(CBN_EDITCHANGE);
    ExpectRules(IDC_OPT_READ_ONLY, {IDC_CHK_DELETE_COPY_READ_ONLY}, {});
    At(IDC_LST_SCHEME).SetText(L"Mine");
    At(IDC_LST_SCHEME).Notify(CBN_KILLFOCUS);
    ExpectRules(IDC_OPT_READ_ONLY, {IDC_CHK_DELETE_COPY_READ_ONLY}, {});
    At(IDOK).Click();
    EXPECT_EQ(L"Mine", (Store.Values[{L"S", kSchemeKey}]));
}

// Such as one that was pasted by the mouse, or put there by another program.
TEST_F(frmPropertiesTest, ASchemeThatNoEditAnnouncedIsAppliedWhenItsBoxLosesTheFocus) {
    Open(L"");
    At(IDC_LST_SCHEME).SetText(L"Differential");
    ExpectRules(IDC_OPT_DATE_TIME, {}, {IDC_FRA_COPY_RULES});
    At(IDC_LST_SCHEME).Notify(CBN_KILLFOCUS);
    ExpectRules(IDC_OPT_ARCHIVE, {IDC_CHK_DELETE_COPY_ARCHIVE}, {});
}

TEST_F(frmPropertiesTest, EachOptionHasItsBoxesIndentedBelowIt) {
    Open(L"");
    const auto place = [this](int control) {
        RECT rectangle = {};
        GetWindowRect(At(control).Handle(), &rectangle);
        return rectangle;
    };
    // The circle of an option is about as wide as its line is high.
    const auto expectBelow = [&](int control, int above, bool indented) {
        const RECT upper = place(above);
        const RECT lower = place(control);
        EXPECT_GE(lower.top, upper.bottom) << control;
        EXPECT_LE(lower.top - upper.bottom, upper.bottom - upper.top) << control;
        const LONG indent = lower.left - place(IDC_OPT_DATE_TIME).left;
        EXPECT_EQ(indented, indent >= 16) << indent;
        EXPECT_EQ(indented, indent != 0) << indent;
    };
    expectBelow(IDC_OPT_ARCHIVE, IDC_OPT_DATE_TIME, false);
    expectBelow(IDC_CHK_CLEAR_ARCHIVE, IDC_OPT_ARCHIVE, true);
    expectBelow(IDC_CHK_DELETE_COPY_ARCHIVE, IDC_CHK_CLEAR_ARCHIVE, true);
    expectBelow(IDC_OPT_READ_ONLY, IDC_CHK_DELETE_COPY_ARCHIVE, false);
    expectBelow(IDC_CHK_DELETE_COPY_READ_ONLY, IDC_OPT_READ_ONLY, true);
}

TEST_F(frmPropertiesTest, TheArrowKeysGoFromOptionToOption) {
    Open(L"");
    const auto next = [this](int control, BOOL back) {
        return GetDlgCtrlID(GetNextDlgGroupItem(form_.Handle(), At(control).Handle(), back));
    };
    EXPECT_EQ(IDC_OPT_ARCHIVE, next(IDC_OPT_DATE_TIME, FALSE));
    EXPECT_EQ(IDC_OPT_READ_ONLY, next(IDC_OPT_ARCHIVE, FALSE));
    EXPECT_EQ(IDC_OPT_DATE_TIME, next(IDC_OPT_READ_ONLY, FALSE));
    EXPECT_EQ(IDC_OPT_READ_ONLY, next(IDC_OPT_DATE_TIME, TRUE));
}

TEST_F(frmPropertiesTest, AnOptionUnticksAndEnablesTheBoxes) {
    Open(L"");
    At(IDC_OPT_ARCHIVE).Click();
    At(IDC_CHK_CLEAR_ARCHIVE).Click();
    At(IDC_CHK_DELETE_COPY_ARCHIVE).Click();
    ExpectRules(IDC_OPT_ARCHIVE, {IDC_CHK_CLEAR_ARCHIVE, IDC_CHK_DELETE_COPY_ARCHIVE},
                {IDC_FRA_COPY_RULES, IDC_CHK_CLEAR_ARCHIVE, IDC_CHK_DELETE_COPY_ARCHIVE});
    At(IDC_OPT_READ_ONLY).Click();
    ExpectRules(IDC_OPT_READ_ONLY, {}, {IDC_FRA_COPY_RULES, IDC_CHK_DELETE_COPY_READ_ONLY});
    At(IDC_OPT_DATE_TIME).Click();
    ExpectRules(IDC_OPT_DATE_TIME, {}, {IDC_FRA_COPY_RULES});
}

TEST_F(frmPropertiesTest, TheDeletionComesUpUntickedAndIsThenStoredSo) {
    Store.Values[{L"S", kCopyTypeKey}] = kCopyTypeArchiveBit;
    Store.Values[{L"S", kDeleteCopyArchiveBitKey}] = kYes;
    Open(L"S");
    EXPECT_FALSE(At(IDC_CHK_DELETE_COPY_ARCHIVE).IsTicked());
    At(IDOK).Click();
    EXPECT_EQ(kNo, (Store.Values[{L"S", kDeleteCopyArchiveBitKey}]));
}

TEST_F(frmPropertiesTest, AnUnknownSchemeShowsSetMyOwn) {
    Store.Values[{L"S", kSchemeKey}] = L"Mirror";
    Store.Values[{L"S", kCopyTypeKey}] = kCopyTypeReadOnly;
    Open(L"S");
    EXPECT_EQ(L"Set my own", At(IDC_LST_SCHEME).Text());
    ExpectRules(IDC_OPT_DATE_TIME, {}, {IDC_FRA_COPY_RULES});
}

TEST_F(frmPropertiesTest, OkWritesTheSetAndTellsItsName) {
    Open(L"");
    At(IDC_TXT_SET).SetText(L" A, \"b\" \\ c ");
    At(IDC_TXT_FOLDER_0).SetText(L" \\\\server\\share\\x ");
    const std::wstring longPath = L"D:\\" + std::wstring(400, L'p');
    At(IDC_TXT_FOLDER_1).SetText(longPath.c_str());
    At(IDOK).Click();
    EXPECT_EQ(nullptr, form_.Handle());
    const std::wstring name = L"A, \"b\" \\ c";
    EXPECT_EQ(name, Context.CurrentSetName);
    EXPECT_EQ(L"\\\\server\\share\\x", (Store.Values[{name, kSourceKey}]));
    EXPECT_EQ(longPath, (Store.Values[{name, kDestinationKey}]));
    EXPECT_EQ(9U, Store.Writes.size());
}

TEST_F(frmPropertiesTest, CancelAndAnEmptyNameWriteNothing) {
    for (const int button : {IDOK, IDCANCEL}) {
        Open(L"");
        At(button).Click();
        EXPECT_EQ(nullptr, form_.Handle());
        EXPECT_EQ(L"", Context.CurrentSetName);
    }
    EXPECT_TRUE(Store.Writes.empty());
}

TEST_F(frmPropertiesTest, IsNotLoadedAgainForAMessageThatSaysSo) {
    Open(L"A");
    At(IDC_TXT_FOLDER_1).SetText(L"typed");
    SendMessageW(form_.Handle(), WM_INITDIALOG, 0, 16);  // nothing lies there
    SendMessageW(form_.Handle(), WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(&form_));
    EXPECT_EQ(L"typed", At(IDC_TXT_FOLDER_1).Text());
}

}  // namespace
}  // namespace ambrio
