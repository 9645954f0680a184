// F1 shows the help, whichever dialog it is pressed in, and the help goes with its dialog.

#include <string>
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
    struct Call {
        HWND Owner;
        std::wstring File;
        UINT Command;
        bool HasWindow;
    };

    FormHelpTest() {
        App.HelpFile = L"C:\\Somewhere\\Ambrio.HLP";
        App.HelpPage = L"C:\\Some where\\Ambrio.html";
        Files.WriteFile(App.HelpPage, "page");
        SetViewer(kViewer);
        calls_.clear();
        opened_.clear();
        boxes_.clear();
    }

    static constexpr std::size_t kViewer = 300'000;      // bytes
    static constexpr std::size_t kPlaceholder = 10'000;  // what newer systems have in its place
    void SetViewer(std::size_t bytes) {
        Files.WriteFile(GetWindowsFolder() + L"\\winhlp32.exe", std::string(bytes, 'x'));
    }
    static void PressF1(Form& form) {
        const HELPINFO info = {sizeof(HELPINFO), HELPINFO_WINDOW, 0, form.Handle(), 0, {}};
        SendMessageW(form.Handle(), WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
    }

    // With the dialog the help goes, too.
    void ExpectHelpIn(Form& form) {
        form.Load(nullptr);
        PressF1(form);
        const HWND owner = form.Handle();
        ASSERT_EQ(1U, calls_.size());
        EXPECT_EQ(owner, calls_[0].Owner);
        EXPECT_EQ(App.HelpFile, calls_[0].File);
        EXPECT_EQ(static_cast<UINT>(HELP_CONTENTS), calls_[0].Command);
        form.Unload();
        ASSERT_EQ(2U, calls_.size());
        EXPECT_EQ(owner, calls_[1].Owner);
        EXPECT_EQ(static_cast<UINT>(HELP_QUIT), calls_[1].Command);
        EXPECT_TRUE(calls_[1].HasWindow);
        EXPECT_TRUE(opened_.empty());
    }

    static inline std::vector<Call> calls_;
    // What was opened: the program and what it was given.
    static inline std::vector<std::wstring> opened_;
    static inline std::vector<std::wstring> boxes_;

  private:
    static BOOL WINAPI Help(HWND owner, const wchar_t* file, UINT command, ULONG_PTR /*data*/) {
        calls_.push_back({owner, file, command, IsWindow(owner) != FALSE});
        return TRUE;
    }
    static HINSTANCE WINAPI Execute(HWND /*owner*/, const wchar_t* /*verb*/, const wchar_t* program,
                                    const wchar_t* arguments, const wchar_t* /*folder*/,
                                    INT /*show*/) {
        opened_.push_back(std::wstring(program) + L" " + arguments);
        return reinterpret_cast<HINSTANCE>(33);
    }
    static HINSTANCE WINAPI Find(const wchar_t* /*file*/, const wchar_t* /*folder*/,
                                 wchar_t* program) {
        lstrcpyW(program, L"C:\\Browser.exe");
        return reinterpret_cast<HINSTANCE>(33);
    }
    static int WINAPI Box(HWND /*owner*/, const wchar_t* text, const wchar_t* title,
                          UINT /*style*/) {
        boxes_.push_back(std::wstring(title) + L": " + text);
        return IDOK;
    }

    ReplacedImport help_{L"user32.dll", "WinHelpW", reinterpret_cast<void*>(&Help)};
    ReplacedImport execute_{L"shell32.dll", "ShellExecuteW", reinterpret_cast<void*>(&Execute)};
    ReplacedImport find_{L"shell32.dll", "FindExecutableW", reinterpret_cast<void*>(&Find)};
    ReplacedImport box_{L"user32.dll", "MessageBoxW", reinterpret_cast<void*>(&Box)};
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

TEST_F(FormHelpTest, ADialogWithoutHelpSaysNothingOfItWhenItGoes) {
    frmAbout form(Context);
    form.Load(nullptr);
    form.Unload();
    EXPECT_TRUE(calls_.empty());
}

TEST_F(FormHelpTest, WithoutAViewerTheBrowserShowsThePage) {
    SetViewer(kPlaceholder);
    frmAbout form(Context);
    form.Load(nullptr);
    PressF1(form);
    EXPECT_EQ(std::vector<std::wstring>{L"C:\\Browser.exe file:///C:/Some%20where/Ambrio.html"},
              opened_);
    EXPECT_TRUE(boxes_.empty());
    form.Unload();
    EXPECT_TRUE(calls_.empty());
}

TEST_F(FormHelpTest, APageThatIsNotThereIsTold) {
    SetViewer(kPlaceholder);
    Files.Remove(App.HelpPage);
    App.Title = L"The title";
    frmAbout form(Context);
    form.Load(nullptr);
    PressF1(form);
    EXPECT_EQ(std::vector<std::wstring>{L"The title: " + App.HelpPage + L"\r\nFile not found"},
              boxes_);
    EXPECT_TRUE(opened_.empty());
    EXPECT_NE(nullptr, form.Handle());
}

}  // namespace
}  // namespace ambrio
