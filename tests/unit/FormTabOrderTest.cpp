// The tabulator leads through each dialog from the top left to the bottom right, column by column.

#include <vector>

#include "config/frmAbout.h"
#include "config/frmBrowse.h"
#include "config/frmConfiguration.h"
#include "config/frmIncludeExclude.h"
#include "config/frmProperties.h"
#include "resources/DialogIds.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

class FormTabOrderTest : public FormTest {
  protected:
    // The controls that the tabulator reaches, from the first on.
    static std::vector<int> OrderOf(Form& form) {
        form.Load(nullptr);
        std::vector<int> order;
        const HWND first = GetNextDlgTabItem(form.Handle(), nullptr, FALSE);
        HWND control = first;
        do {
            order.push_back(GetDlgCtrlID(control));
            control = GetNextDlgTabItem(form.Handle(), control, FALSE);
        } while (control != first && order.size() < 100);
        return order;
    }
};

TEST_F(FormTabOrderTest, OfTheConfigurationDialog) {
    frmConfiguration form(Context);
    EXPECT_EQ(
        (std::vector<int>{IDC_LST_SETS, IDC_CMD_UP, IDC_CMD_DOWN, IDC_CMD_NEW, IDC_CMD_REMOVE,
                          IDC_CMD_PROPERTIES, IDC_CHK_LOG_ONLY_ERRORS, IDC_CHK_CLEAR_LOG_DAILY,
                          IDC_CBO_SS, IDC_CMD_SETTINGS, IDOK, IDC_CMD_HELP, IDC_CMD_ABOUT}),
        OrderOf(form));
}

TEST_F(FormTabOrderTest, OfTheProperties) {
    Context.CurrentSetName = L"";
    frmProperties fresh(Context);
    // Of the options only the chosen one; the boxes that do not go with it are disabled.
    EXPECT_EQ(
        (std::vector<int>{IDC_TXT_SET, IDC_TXT_FOLDER_0, IDC_CMD_BROWSE_0, IDC_TXT_FOLDER_1,
                          IDC_CMD_BROWSE_1, IDC_LST_SCHEME, IDC_CHK_RECURSIVE, IDC_CHK_OVERWRITE_RO,
                          IDC_OPT_DATE_TIME, IDC_CMD_ADVANCED, IDOK, IDCANCEL}),
        OrderOf(fresh));
    Context.CurrentSetName = L"S";
    Store.Values[{L"S", kCopyTypeKey}] = kCopyTypeArchiveBit;
    frmProperties existing(Context);
    EXPECT_EQ((std::vector<int>{IDC_TXT_FOLDER_0, IDC_CMD_BROWSE_0, IDC_TXT_FOLDER_1,
                                IDC_CMD_BROWSE_1, IDC_LST_SCHEME, IDC_CHK_RECURSIVE,
                                IDC_CHK_OVERWRITE_RO, IDC_OPT_ARCHIVE, IDC_CHK_CLEAR_ARCHIVE,
                                IDC_CHK_DELETE_COPY_ARCHIVE, IDC_CMD_ADVANCED, IDOK, IDCANCEL}),
              OrderOf(existing));
}

TEST_F(FormTabOrderTest, OfTheSmallDialogs) {
    frmBrowse browse(Context, nullptr);
    EXPECT_EQ((std::vector<int>{IDC_DRIVE1, IDC_DIR1, IDOK, IDCANCEL}), OrderOf(browse));
    frmIncludeExclude selection(Context);
    EXPECT_EQ((std::vector<int>{IDC_TXT_INCLUDE, IDC_TXT_EXCLUDE, IDOK, IDCANCEL}),
              OrderOf(selection));
    frmAbout about(Context);
    EXPECT_EQ((std::vector<int>{IDC_CMD_WWW, IDC_CMD_SYS_INFO, IDOK}), OrderOf(about));
}

}  // namespace
}  // namespace ambrio
