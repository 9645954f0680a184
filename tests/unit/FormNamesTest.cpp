// What screen readers call the lists and boxes of the dialogs: the text that stands before each.

#include <string>
#include <vector>

#include "config/frmBrowse.h"
#include "config/frmConfiguration.h"
#include "config/frmIncludeExclude.h"
#include "config/frmProperties.h"
#include "platform/win32/windows/WindowText.h"
#include "resources/DialogIds.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

class FormNamesTest : public FormTest {
  protected:
    // The static text before a control in the order of the keys; empty when something else is.
    static std::wstring NameOf(const Form& form, int control) {
        const HWND before = GetWindow(GetDlgItem(form.Handle(), control), GW_HWNDPREV);
        wchar_t className[20] = L"";
        GetClassNameW(before, className, 20);
        return std::wstring(className) == L"Static" ? WindowText(before) : std::wstring();
    }
    // A name that is only heard must not be drawn over what is seen.
    static bool IsOnlyHeard(const Form& form, int control) {
        const HWND before = GetWindow(GetDlgItem(form.Handle(), control), GW_HWNDPREV);
        return (GetWindowLongW(before, GWL_STYLE) & WS_VISIBLE) == 0;
    }
};

TEST_F(FormNamesTest, OfTheListsOfTheConfiguration) {
    frmConfiguration form(Context);
    form.Load(nullptr);
    EXPECT_EQ(L"Sets", NameOf(form, IDC_LST_SETS));
    EXPECT_EQ(L"Secondary Screen Saver", NameOf(form, IDC_CBO_SS));
    EXPECT_TRUE(IsOnlyHeard(form, IDC_LST_SETS));
    EXPECT_TRUE(IsOnlyHeard(form, IDC_CBO_SS));
}

TEST_F(FormNamesTest, OfTheListsAndBoxesOfTheProperties) {
    frmProperties form(Context);
    form.Load(nullptr);
    EXPECT_EQ(L"Set:", NameOf(form, IDC_TXT_SET));
    EXPECT_EQ(L"Source:", NameOf(form, IDC_TXT_FOLDER_0));
    EXPECT_EQ(L"Destination:", NameOf(form, IDC_TXT_FOLDER_1));
    EXPECT_EQ(L"Scheme", NameOf(form, IDC_LST_SCHEME));
}

TEST_F(FormNamesTest, OfTheListsOfTheBrowseDialog) {
    frmBrowse form(Context, nullptr);
    form.Load(nullptr);
    EXPECT_EQ(L"Drive", NameOf(form, IDC_DRIVE1));
    EXPECT_EQ(L"Folder", NameOf(form, IDC_DIR1));
    EXPECT_TRUE(IsOnlyHeard(form, IDC_DRIVE1));
    EXPECT_TRUE(IsOnlyHeard(form, IDC_DIR1));
}

TEST_F(FormNamesTest, OfTheBoxesOfTheFileSelection) {
    frmIncludeExclude form(Context);
    form.Load(nullptr);
    EXPECT_EQ(L"Include:-", NameOf(form, IDC_TXT_INCLUDE));
    EXPECT_EQ(L"Exclude:-", NameOf(form, IDC_TXT_EXCLUDE));
}

}  // namespace
}  // namespace ambrio
