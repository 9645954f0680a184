#include "config/frmConfiguration.h"

#include <array>

#include "config/frmAbout.h"
#include "config/frmProperties.h"
#include "config/model/DialogOptions.h"
#include "config/model/DialogTexts.h"
#include "config/model/SecondarySavers.h"
#include "platform/win32/system/LaunchProgram.h"
#include "platform/win32/system/SystemFolders.h"
#include "platform/win32/windows/WindowText.h"
#include "resources/DialogIds.h"
#include "settings/GeneralOptions.h"

namespace ambrio {
namespace {

std::vector<std::wstring> ComboEntries(HWND combo) {
    std::vector<std::wstring> entries;
    const auto count = static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        entries.push_back(ComboEntryText(combo, i));
    }
    return entries;
}

// The first that has a saver is the one whose saver is started.
std::vector<std::wstring> SaverFolders() {
    std::vector<std::wstring> folders = GetSystemFolders();
    folders.insert(folders.begin(), GetWindowsFolder());
    return folders;
}

}  // namespace

frmConfiguration::frmConfiguration(DialogContext& context) : Form(context, IDD_CONFIGURATION) {}

void frmConfiguration::Form_Load() {
    static constexpr std::array<Tip, 9> kTips = {{
        {IDC_LST_SETS, IDS_TIP_SETS},
        {IDC_CMD_UP, IDS_TIP_UP},
        {IDC_CMD_DOWN, IDS_TIP_DOWN},
        {IDC_CMD_NEW, IDS_TIP_NEW},
        {IDC_CMD_REMOVE, IDS_TIP_REMOVE},
        {IDC_CMD_PROPERTIES, IDS_TIP_PROPERTIES},
        {IDC_CHK_CLEAR_LOG_DAILY, IDS_TIP_CLEAR_LOG_DAILY},
        {IDOK, IDS_TIP_CONFIGURATION_OK},
        {IDC_CMD_ABOUT, IDS_TIP_ABOUT},
    }};
    const std::wstring& title = Context().App.Title;
    lstSets_.Attach(Control(IDC_LST_SETS));
    SetTooltips(kTips);

    SetProgramIcon();
    SetCaption(ConfigurationCaption(title));
    const std::wstring sets = ReadSets(Context().Settings);
    const DialogOptions options = LoadDialogOptions(Context().Settings);
    Tick(IDC_CHK_LOG_ONLY_ERRORS, options.LogOnlyErrors);
    Tick(IDC_CHK_CLEAR_LOG_DAILY, options.ClearLogDaily);
    SetTooltip(IDC_CHK_LOG_ONLY_ERRORS,
               LogOnlyErrorsTooltip(Context().Files, title, Context().LogFile, GetWindowsFolder()));
    SetListModel list;
    list.BuildList(Context().Settings, sets);
    ShowSets(list);
    FillSavers();
    const auto saver = SaverToSelect(ComboEntries(Control(IDC_CBO_SS)), options.SecondarySaver);
    Send(IDC_CBO_SS, CB_SETCURSEL, saver ? *saver : static_cast<WPARAM>(-1));
}

// For the task bar.
void frmConfiguration::SetProgramIcon() {
    SendMessageW(Handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(ProgramIcon(SM_CXICON)));
    SendMessageW(Handle(), WM_SETICON, ICON_SMALL,
                 reinterpret_cast<LPARAM>(ProgramIcon(SM_CXSMICON)));
}

void frmConfiguration::FillSavers() {
    const auto add = [this](const std::wstring& name) {
        Send(IDC_CBO_SS, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    };
    // A saver that lies in the Windows folder and in a System folder stands in the list twice.
    for (const auto& folders : {std::vector{GetWindowsFolder()}, GetSystemFolders()}) {
        for (const std::wstring& name : SaversIn(Context().Files, folders)) {
            add(name);
        }
    }
    add(kNoSaver);
}

void frmConfiguration::OnCommand(int control, int notification) {
    if (control == IDC_LST_SETS && notification == LBN_DBLCLK) {
        cmdProperties_Click();
    } else if (notification == BN_CLICKED) {
        Click(control);
    }
}

bool frmConfiguration::OnListKey(int control, WORD key) {
    if (control != IDC_LST_SETS || (key != VK_INSERT && key != VK_DELETE)) {
        return false;
    }
    Click(key == VK_INSERT ? IDC_CMD_NEW : IDC_CMD_REMOVE);
    return true;
}

void frmConfiguration::Click(int button) {
    switch (button) {
        case IDC_CMD_UP:
            return cmdMove_Click(&SetListModel::MoveUp);
        case IDC_CMD_DOWN:
            return cmdMove_Click(&SetListModel::MoveDown);
        case IDC_CMD_NEW:
            return cmdNew_Click();
        case IDC_CMD_REMOVE:
            return cmdRemove_Click();
        case IDC_CMD_PROPERTIES:
            return cmdProperties_Click();
        case IDC_CMD_SETTINGS:
            return cmdSettings_Click();
        case IDC_CMD_HELP:
            return ShowHelp();
        case IDC_CMD_ABOUT:
            return cmdAbout_Click();
        case IDOK:
            return cmdOk_Click();
        default:
            return;
    }
}

void frmConfiguration::OnDrawItem(const DRAWITEMSTRUCT& item) {
    lstSets_.Draw(item);
}

void frmConfiguration::cmdMove_Click(bool (SetListModel::*move)()) {
    SetListModel sets = ListedSets();
    if ((sets.*move)()) {
        ShowSets(sets);
    } else {
        MessageBeep(MB_OK);
    }
}

void frmConfiguration::cmdNew_Click() {
    Context().CurrentSetName.clear();
    ShowProperties();
    SetListModel sets = ListedSets();
    const bool isAdded = !Context().CurrentSetName.empty();
    if (isAdded) {
        sets.Add(Context().CurrentSetName);
    }
    // Also when nothing was added.
    sets.MakeLastCurrent();
    ShowSets(sets);
    if (isAdded) {
        // It starts unticked; there the space bar ticks it.
        FocusOn(Control(IDC_LST_SETS));
    }
}

void frmConfiguration::cmdProperties_Click() {
    const SetListModel sets = ListedSets();
    if (!sets.Current()) {
        // Without a name it would make a new Set, which the list does not show.
        MessageBeep(MB_OK);
        return;
    }
    Context().CurrentSetName = sets.CurrentName();
    ShowProperties();
}

void frmConfiguration::ShowProperties() {
    frmProperties properties(Context());
    properties.Load(Handle());
    properties.ShowModal();
}

void frmConfiguration::cmdRemove_Click() {
    SetListModel sets = ListedSets();
    if (!sets.Current()) {
        MessageBeep(MB_OK);
        return;
    }
    if (Ask(RemoveQuestion(sets.CurrentName()), Context().App.Title,
            MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES) {
        sets.RemoveCurrent();
        ShowSets(sets);
    }
}

void frmConfiguration::cmdSettings_Click() {
    const auto path = SaverPath(Context().Files, SaverFolders(), Text(IDC_CBO_SS));
    if (path && !LaunchProgram(SettingsCommandLine(*path), WindowState::MinimisedFocus)) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
}

void frmConfiguration::cmdAbout_Click() {
    frmAbout about(Context());
    about.Load(Handle());
    about.ShowModal();
}

void frmConfiguration::cmdOk_Click() {
    ListedSets().Save(Context().Settings);
    SaveDialogOptions(Context().Settings, {IsTicked(IDC_CHK_LOG_ONLY_ERRORS),
                                           IsTicked(IDC_CHK_CLEAR_LOG_DAILY), Text(IDC_CBO_SS)});
    Unload();
}

SetListModel frmConfiguration::ListedSets() const {
    std::vector<SetEntry> entries;
    for (int i = 0; i < lstSets_.Count(); ++i) {
        entries.push_back({lstSets_.Name(i), lstSets_.IsTicked(i)});
    }
    const int current = lstSets_.Current();
    return {std::move(entries),
            current < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(current))};
}

void frmConfiguration::ShowSets(const SetListModel& sets) {
    const LRESULT top = Send(IDC_LST_SETS, LB_GETTOPINDEX);
    Send(IDC_LST_SETS, WM_SETREDRAW, FALSE);
    lstSets_.Clear();
    for (const SetEntry& entry : sets.Entries()) {
        lstSets_.Add(entry.Name, entry.IsTicked);
    }
    Send(IDC_LST_SETS, LB_SETTOPINDEX, static_cast<WPARAM>(top));
    Send(IDC_LST_SETS, WM_SETREDRAW, TRUE);
    if (sets.Current()) {
        lstSets_.SetCurrent(static_cast<int>(*sets.Current()));
    }
    InvalidateRect(Control(IDC_LST_SETS), nullptr, TRUE);
}

}  // namespace ambrio
