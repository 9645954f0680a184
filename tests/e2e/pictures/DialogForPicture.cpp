// Shows one of the dialogs in a window of its own, for a picture of it, and prints where it lies:
//     DialogForPicture configuration|new|properties|browse|selection|about
// It shows the user's settings, of the Set "Documents" where there is one to be shown; "new" is a
// new Set of that name.

#include <cstdio>
#include <memory>
#include <string>

#include "config/frmAbout.h"
#include "config/frmBrowse.h"
#include "config/frmConfiguration.h"
#include "config/frmIncludeExclude.h"
#include "config/frmProperties.h"
#include "platform/win32/files/Win32FileSystem.h"
#include "platform/win32/registry/RegistrySettingsStore.h"
#include "resources/DialogIds.h"

namespace ambrio {
namespace {

constexpr const wchar_t* kDocuments = L"C:\\Users\\Anna\\Documents";

std::unique_ptr<Form> Make(const std::wstring& name, DialogContext& context) {
    if (name == L"configuration") {
        return std::make_unique<frmConfiguration>(context);
    }
    if (name == L"properties" || name == L"new") {
        return std::make_unique<frmProperties>(context);
    }
    if (name == L"browse") {
        return std::make_unique<frmBrowse>(context, nullptr);
    }
    if (name == L"selection") {
        return std::make_unique<frmIncludeExclude>(context);
    }
    return name == L"about" ? std::make_unique<frmAbout>(context) : nullptr;
}

// What a user types for a new Set.
void Fill(const Form& properties) {
    SetDlgItemTextW(properties.Handle(), IDC_TXT_SET, L"Documents");
    SetDlgItemTextW(properties.Handle(), IDC_TXT_FOLDER_0, kDocuments);
    SetDlgItemTextW(properties.Handle(), IDC_TXT_FOLDER_1, L"E:\\Backup\\Documents");
}

int Run(const std::wstring& name) {
    Application application;
    application.Title = kApplicationTitle;
    application.HelpPage = L"C:\\Windows\\Ambrio.html";
    RegistrySettingsStore settings(application.Title);
    CopyWatch copyWatch;
    Win32FileSystem files(copyWatch);
    DialogContext context{application,
                          files,
                          settings,
                          GetModuleHandleW(nullptr),
                          L"C:\\Windows\\Ambrio.log",
                          name == L"new" ? L"" : L"Documents",
                          0};
    const std::unique_ptr<Form> form = Make(name, context);
    if (form == nullptr) {
        return 2;
    }
    SetCurrentDirectoryW(kDocuments);  // what there is to be browsed
    form->Load(nullptr);
    if (name == L"new") {
        Fill(*form);
    }
    if (auto* selection = dynamic_cast<frmIncludeExclude*>(form.get())) {
        selection->Init(context.CurrentSetName);
    }
    SetCursorPos(1, 1);  // outside, where it calls up no tooltip
    SetWindowPos(form->Handle(), nullptr, 10, 10, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    RECT place = {};
    GetWindowRect(form->Handle(), &place);
    std::printf("%ldx%ld+%ld+%ld\n", place.right - place.left, place.bottom - place.top, place.left,
                place.top);
    std::fflush(stdout);
    form->ShowModeless();
    return 0;
}

}  // namespace
}  // namespace ambrio

int wmain(int count, wchar_t** arguments) {
    return ambrio::Run(count == 2 ? arguments[1] : L"");
}
