#include "config/frmAbout.h"

#include "ProductVersion.h"
#include "config/SystemInformation.h"
#include "config/model/DialogTexts.h"
#include "config/model/HelpPages.h"
#include "platform/win32/windows/ResourceText.h"
#include "resources/DialogIds.h"
#include "resources/ResourceIds.h"

namespace ambrio {

frmAbout::frmAbout(DialogContext& context) : Form(context, IDD_ABOUT) {}

void frmAbout::Form_Load() {
    CentreOver(GetWindow(Handle(), GW_OWNER));
    SetCaption(AboutCaption(Context().App.Title));
    SetText(IDC_LBL_VERSION,
            VersionText(AMBRIO_VERSION_MAJOR, AMBRIO_VERSION_MINOR, AMBRIO_VERSION_REVISION));
    SetText(IDC_LBL_TITLE, Context().App.Title);
    SetText(IDC_LBL_DISCLAIMER, ResourceText(IDS_DISCLAIMER));
    SetText(IDC_ABOUT_LABEL1, ResourceText(IDS_ABOUT_LABEL1));
    SetText(IDC_ABOUT_LABEL2, WebPage(kPublicPage, Context().App.HelpPage));
    SetText(IDC_ABOUT_LABEL3, ResourceText(IDS_SLOGAN));
    Send(IDC_PIC_ICON, STM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(ProgramIcon(SM_CXICON)));
}

HWND frmAbout::FirstFocus() const {
    return Control(IDOK);
}

void frmAbout::OnCommand(int control, int notification) {
    if (notification != BN_CLICKED) {
        return;
    }
    if (control == IDOK) {
        Unload();
    } else if (control == IDC_CMD_SYS_INFO) {
        cmdSysInfo_Click();
    } else if (control == IDC_CMD_WWW) {
        cmdWWW_Click();
    }
}

void frmAbout::cmdSysInfo_Click() {
    if (!StartSysInfo(Context().Files)) {
        Ask(L"System Information Is Unavailable At This Time", Context().App.Title, MB_OK);
    }
}

void frmAbout::cmdWWW_Click() {
    const std::wstring page = WebPage(kPublicPage, Context().App.HelpPage);
    if (!ShowPage(page)) {
        Ask(ResourceText(IDS_BROWSER_PROBLEM) + L"\r\n" + page, L"Internet", MB_OK);
    }
}

}  // namespace ambrio
