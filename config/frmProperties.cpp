#include "config/frmProperties.h"

#include <array>
#include <utility>

#include "config/frmBrowse.h"
#include "config/frmIncludeExclude.h"
#include "config/model/DialogTexts.h"
#include "platform/Trim.h"
#include "resources/DialogIds.h"

namespace ambrio {
namespace {

constexpr std::array<int, 2> kFolderBoxes = {IDC_TXT_FOLDER_0, IDC_TXT_FOLDER_1};

constexpr std::array<std::pair<int, CopyTypeOption>, 3> kOptions = {{
    {IDC_OPT_DATE_TIME, CopyTypeOption::DateTime},
    {IDC_OPT_ARCHIVE, CopyTypeOption::Archive},
    {IDC_OPT_READ_ONLY, CopyTypeOption::ReadOnly},
}};

}  // namespace

frmProperties::frmProperties(DialogContext& context)
    : Form(context, IDD_PROPERTIES),
      folderBoxes_{FolderBox(context.Files), FolderBox(context.Files)} {}

void frmProperties::Form_Load() {
    static constexpr std::array<Tip, 15> kTips = {{
        {IDC_TXT_SET, IDS_TIP_SET},
        {IDC_TXT_FOLDER_0, IDS_TIP_SOURCE},
        {IDC_TXT_FOLDER_1, IDS_TIP_DESTINATION},
        {IDC_CMD_BROWSE_0, IDS_TIP_BROWSE},
        {IDC_CMD_BROWSE_1, IDS_TIP_BROWSE},
        {IDC_LST_SCHEME, IDS_TIP_SCHEME},
        {IDC_CHK_RECURSIVE, IDS_TIP_RECURSIVE},
        {IDC_OPT_DATE_TIME, IDS_TIP_DATE_TIME},
        {IDC_OPT_ARCHIVE, IDS_TIP_ARCHIVE},
        {IDC_OPT_READ_ONLY, IDS_TIP_READ_ONLY},
        {IDC_CHK_CLEAR_ARCHIVE, IDS_TIP_CLEAR_ARCHIVE},
        {IDC_CHK_DELETE_COPY_ARCHIVE, IDS_TIP_DELETE_COPY},
        {IDC_CHK_DELETE_COPY_READ_ONLY, IDS_TIP_DELETE_COPY},
        {IDOK, IDS_TIP_PROPERTIES_OK},
        {IDCANCEL, IDS_TIP_PROPERTIES_CANCEL},
    }};
    static constexpr std::array kFollowers = {
        Follower{.Control = IDC_TXT_SET, .Widens = true},
        Follower{.Control = IDC_TXT_FOLDER_0, .Widens = true},
        Follower{.Control = IDC_CMD_BROWSE_0, .MovesRight = true},
        Follower{.Control = IDC_TXT_FOLDER_1, .Widens = true},
        Follower{.Control = IDC_CMD_BROWSE_1, .MovesRight = true},
        Follower{.Control = IDC_LST_SCHEME, .Widens = true},
        Follower{.Control = IDC_FRA_COPY_RULES, .Widens = true},
        Follower{.Control = IDOK, .MovesRight = true},
        Follower{.Control = IDCANCEL, .MovesRight = true},
    };
    CentreOver(GetWindow(Handle(), GW_OWNER));
    Stretch(kFollowers);
    SetTooltips(kTips);
    Send(IDC_TXT_SET, EM_SETLIMITTEXT, kLongestSetName);
    Send(IDC_TXT_FOLDER_0, EM_SETLIMITTEXT);
    Send(IDC_TXT_FOLDER_1, EM_SETLIMITTEXT);
    for (std::size_t i = 0; i < folderBoxes_.size(); ++i) {
        folderBoxes_[i].Attach(Control(kFolderBoxes[i]));
    }
    for (const Scheme& scheme : kSchemes) {
        Send(IDC_LST_SCHEME, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(scheme.Name));
    }
    const std::wstring& name = Context().CurrentSetName;
    SetCaption(PropertiesCaption(name));
    // A disabled box takes the form's background by itself.
    Enable(IDC_TXT_SET, name.empty());
    ShowProperties(name.empty() ? NewSetProperties() : LoadSetProperties(Context().Settings, name));
}

HWND frmProperties::FirstFocus() const {
    return Control(Context().CurrentSetName.empty() ? IDC_TXT_SET : IDC_TXT_FOLDER_0);
}

void frmProperties::OnCommand(int control, int notification) {
    if (control == IDC_LST_SCHEME) {
        lstScheme_Notify(notification);
    } else if (notification == BN_CLICKED) {
        Click(control);
    }
}

void frmProperties::Click(int control) {
    switch (control) {
        case IDC_OPT_DATE_TIME:
        case IDC_OPT_ARCHIVE:
        case IDC_OPT_READ_ONLY: {
            CopyRulesFrame rules = ReadRules();
            SetCheckBoxes(rules);
            ShowRules(rules);
            return;
        }
        case IDC_CMD_BROWSE_0:
            return cmdBrowse_Click(kBrowseSource);
        case IDC_CMD_BROWSE_1:
            return cmdBrowse_Click(kBrowseDestination);
        case IDC_CMD_ADVANCED:
            return cmdAdvanced_Click();
        case IDOK:
            return cmdOk_Click();
        case IDCANCEL:
            return Unload();
        default:
            return;
    }
}

void frmProperties::lstScheme_Notify(int notification) {
    if (notification == CBN_SELCHANGE) {
        // The box does not show the new entry yet.
        const LRESULT entry = Send(IDC_LST_SCHEME, CB_GETCURSEL);
        if (entry >= 0 && entry < static_cast<LRESULT>(kSchemes.size())) {
            ApplySchemeText(kSchemes[static_cast<std::size_t>(entry)].Name);
        }
    } else if (notification == CBN_EDITCHANGE || notification == CBN_KILLFOCUS) {
        ApplySchemeText(Text(IDC_LST_SCHEME));
    }
}

void frmProperties::ApplySchemeText(const std::wstring& scheme) {
    CopyRulesFrame rules = ReadRules();
    ApplyScheme(rules, scheme);
    ShowRules(rules);
}

void frmProperties::cmdBrowse_Click(std::int16_t index) {
    Context().BrowseIndex = index;
    frmBrowse browse(Context(), Control(kFolderBoxes[static_cast<std::size_t>(index)]));
    browse.Load(Handle());
    browse.ShowModal();
}

void frmProperties::cmdAdvanced_Click() {
    frmIncludeExclude selection(Context());
    selection.Load(Handle());
    selection.Init(Trim(Text(IDC_TXT_SET)));
    selection.ShowModal();
}

void frmProperties::cmdOk_Click() {
    if (const auto name = SaveSetProperties(Context().Settings, ReadProperties())) {
        Context().CurrentSetName = *name;
    }
    Unload();
}

void frmProperties::ShowProperties(const SetProperties& properties) {
    SetText(IDC_TXT_SET, properties.Name);
    SetText(IDC_TXT_FOLDER_0, properties.Source);
    SetText(IDC_TXT_FOLDER_1, properties.Destination);
    Tick(IDC_CHK_RECURSIVE, properties.Recursive);
    Tick(IDC_CHK_OVERWRITE_RO, properties.OverwriteReadOnly);
    Send(IDC_LST_SCHEME, CB_SETCURSEL,
         static_cast<WPARAM>(Send(IDC_LST_SCHEME, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                  reinterpret_cast<LPARAM>(properties.Scheme.c_str()))));
    ShowRules(properties.Rules);
}

SetProperties frmProperties::ReadProperties() const {
    return {Text(IDC_TXT_SET),
            Text(IDC_TXT_FOLDER_0),
            Text(IDC_TXT_FOLDER_1),
            IsTicked(IDC_CHK_RECURSIVE),
            IsTicked(IDC_CHK_OVERWRITE_RO),
            Text(IDC_LST_SCHEME),
            ReadRules()};
}

void frmProperties::ShowRules(const CopyRulesFrame& rules) {
    const bool isFrameEnabled = rules.IsFrameEnabled;
    Enable(IDC_FRA_COPY_RULES, isFrameEnabled);
    for (const auto& [control, option] : kOptions) {
        Tick(control, rules.Chosen == option);
        Enable(control, isFrameEnabled);
    }
    Tick(IDC_CHK_CLEAR_ARCHIVE, rules.ClearArchive);
    Tick(IDC_CHK_DELETE_COPY_ARCHIVE, rules.DeleteCopyArchive);
    Tick(IDC_CHK_DELETE_COPY_READ_ONLY, rules.DeleteCopyReadOnly);
    // A disabled frame locks what is in it.
    const bool areArchiveBoxesEnabled = isFrameEnabled && rules.AreArchiveBoxesEnabled();
    Enable(IDC_CHK_CLEAR_ARCHIVE, areArchiveBoxesEnabled);
    Enable(IDC_CHK_DELETE_COPY_ARCHIVE, areArchiveBoxesEnabled);
    Enable(IDC_CHK_DELETE_COPY_READ_ONLY, isFrameEnabled && rules.IsReadOnlyBoxEnabled());
}

CopyRulesFrame frmProperties::ReadRules() const {
    CopyRulesFrame rules;
    rules.Chosen = CopyTypeOption::None;
    for (const auto& [control, option] : kOptions) {
        if (IsTicked(control)) {
            rules.Chosen = option;
        }
    }
    rules.ClearArchive = IsTicked(IDC_CHK_CLEAR_ARCHIVE);
    rules.DeleteCopyArchive = IsTicked(IDC_CHK_DELETE_COPY_ARCHIVE);
    rules.DeleteCopyReadOnly = IsTicked(IDC_CHK_DELETE_COPY_READ_ONLY);
    rules.IsFrameEnabled = IsWindowEnabled(Control(IDC_FRA_COPY_RULES)) != FALSE;
    return rules;
}

}  // namespace ambrio
