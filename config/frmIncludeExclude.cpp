#include "config/frmIncludeExclude.h"

#include "config/model/DialogTexts.h"
#include "platform/win32/windows/ResourceText.h"
#include "resources/DialogIds.h"
#include "settings/SettingKeys.h"

namespace ambrio {

frmIncludeExclude::frmIncludeExclude(DialogContext& context) : Form(context, IDD_INCLUDE_EXCLUDE) {}

void frmIncludeExclude::Form_Load() {
    CentreOver(GetWindow(Handle(), GW_OWNER));
    Send(IDC_TXT_INCLUDE, EM_SETLIMITTEXT);
    Send(IDC_TXT_EXCLUDE, EM_SETLIMITTEXT);
    SetText(IDC_LABEL1, ResourceText(IDS_SELECTION_HELP));
}

void frmIncludeExclude::Init(const std::wstring& rsSet) {
    const std::wstring& section = Context().CurrentSetName;
    SetCaption(FileSelectionCaption(rsSet));
    SetText(IDC_TXT_INCLUDE, Context().Settings.GetSetting(section, kIncludeKey, L""));
    SetText(IDC_TXT_EXCLUDE, Context().Settings.GetSetting(section, kExcludeKey, L""));
}

}  // namespace ambrio
