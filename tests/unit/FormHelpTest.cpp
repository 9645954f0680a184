// F1 shows the help, whichever dialog it is pressed in.

#include <vector>

#include "config/frmAbout.h"
#include "config/frmBrowse.h"
#include "config/frmConfiguration.h"
#include "config/frmIncludeExclude.h"
#include "config/frmProperties.h"
#include "tests/support/win32/ReplacedImport.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

class FormHelpTest : public FormTest {
  protected:
    FormHelpTest() {
        App.HelpFile = L"C:\\Somewhere\\Ambrio.HLP";
        calls_.clear();
    }

    void ExpectHelpIn(Form& form) {
        form.Load(nullptr);
        const HELPINFO info = {sizeof(HELPINFO), HELPINFO_WINDOW, 0, form.Handle(), 0, {}};
        SendMessageW(form.Handle(), WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
        ASSERT_EQ(1U, calls_.size());
        EXPECT_EQ(form.Handle(), calls_[0].Owner);
        EXPECT_EQ(App.HelpFile, calls_[0].File);
        EXPECT_EQ(static_cast<UINT>(HELP_CONTENTS), calls_[0].Command);
    }

  private:
    struct Call {
        HWND Owner;
        std::wstring File;
        UINT Command;
    };
    static BOOL WINAPI Help(HWND owner, const wchar_t* file, UINT command, ULONG_PTR /*data*/) {
        calls_.push_back({owner, file, command});
        return TRUE;
    }

    static inline std::vector<Call> calls_;
    ReplacedImport import_{L"user32.dll", "WinHelpW", reinterpret_cast<void*>(&Help)};
};

TEST_F(FormHelpTest, TheConfigurationHasIt) {
    frmConfiguration form(Context);
    ExpectHelpIn(form);
}

TEST_F(FormHelpTest, ThePropertiesHaveIt) {
    frmProperties form(Context);
    ExpectHelpIn(form);
}

TEST_F(FormHelpTest, TheBrowseDialogHasIt) {
    frmBrowse form(Context, nullptr);
    ExpectHelpIn(form);
}

TEST_F(FormHelpTest, TheFileSelectionHasIt) {
    frmIncludeExclude form(Context);
    ExpectHelpIn(form);
}

TEST_F(FormHelpTest, TheAboutBoxHasIt) {
    frmAbout form(Context);
    ExpectHelpIn(form);
}

}  // namespace
}  // namespace ambrio
