#include "config/frmBrowse.h"

#include <algorithm>
#include <array>

#include "config/model/DialogTexts.h"
#include "config/model/DriveText.h"
#include "platform/DriveLetter.h"
#include "platform/win32/files/FullPath.h"
#include "platform/win32/windows/WaitPointer.h"
#include "platform/win32/windows/WindowText.h"
#include "resources/DialogIds.h"

namespace ambrio {

frmBrowse::frmBrowse(DialogContext& context, HWND txtFolder)
    : Form(context, IDD_BROWSE), txtFolder_(txtFolder), tree_(context.Files) {}

void frmBrowse::Form_Load() {
    static constexpr std::array kFollowers = {
        Follower{.Control = IDC_DRIVE1, .Widens = true},
        Follower{.Control = IDC_DIR1, .Widens = true, .Heightens = true},
        Follower{.Control = IDOK, .MovesRight = true, .MovesDown = true},
        Follower{.Control = IDCANCEL, .MovesRight = true, .MovesDown = true},
    };
    CentreOver(GetWindow(Handle(), GW_OWNER));
    Stretch(kFollowers);
    SetCaption(BrowseCaption(Context().CurrentSetName, Context().BrowseIndex));
    dir1_.Attach(Control(IDC_DIR1));
    FillDrives();
    ShowPlace(FullPath(L"."));
    ShowPlace(WindowText(txtFolder_));
}

void frmBrowse::FillDrives() {
    const WaitPointer pointer;
    drives_ = ListDrives();
    for (const Drive& drive : drives_) {
        const std::wstring text = DriveText(drive);
        Send(IDC_DRIVE1, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
}

// First the drive at the start of the text, then the directory that it names, as far as there are
// such; each failure leaves its list where it was.
void frmBrowse::ShowPlace(const std::wstring& text) {
    const wchar_t letter = DriveLetterOf(text);
    if (letter != openDrive_ && letter != 0) {
        try {
            OpenDrive(letter);
        } catch (const RuntimeError&) {
            SelectOpenDrive();
        }
    }
    if (!text.empty()) {
        try {
            OpenDirectory(FullPath(text));
        } catch (const RuntimeError&) {
            SelectOpenDrive();
        }
    }
}

HWND frmBrowse::FirstFocus() const {
    return Control(IDC_DIR1);
}

void frmBrowse::OnDrawItem(const DRAWITEMSTRUCT& item) {
    dir1_.Draw(item, tree_.Rows());
}

void frmBrowse::OnCommand(int control, int notification) {
    if (control == IDC_DRIVE1 && notification == CBN_SELCHANGE) {
        Drive1_Change();
    } else if (control == IDC_DIR1 && notification == LBN_DBLCLK) {
        Dir1_Open();
    } else if (control == IDOK && notification == BN_CLICKED) {
        cmdOk_Click();
    } else if (control == IDCANCEL && notification == BN_CLICKED) {
        Unload();
    }
}

void frmBrowse::Drive1_Change() {
    const LRESULT entry = Send(IDC_DRIVE1, CB_GETCURSEL);
    if (entry < 0 || entry >= static_cast<LRESULT>(drives_.size())) {
        return;
    }
    const wchar_t letter = drives_[static_cast<std::size_t>(entry)].Letter;
    try {
        OpenDrive(letter);
    } catch (const RuntimeError& error) {
        SelectOpenDrive();
        Ask(DriveFailureText(letter, error.Description()), Context().App.Title,
            MB_OK | MB_ICONEXCLAMATION);
    }
}

void frmBrowse::Dir1_Open() {
    const LRESULT row = Send(IDC_DIR1, LB_GETCURSEL);
    if (row < 0 || row >= static_cast<LRESULT>(tree_.Rows().size())) {
        return;
    }
    // A copy, as opening replaces the rows.
    const std::wstring path = tree_.Rows()[static_cast<std::size_t>(row)].Path;
    try {
        OpenDirectory(path);
    } catch (const RuntimeError& error) {
        Ask(path + L"\r\n" + error.Description(), Context().App.Title, MB_OK | MB_ICONEXCLAMATION);
    }
}

void frmBrowse::OpenDirectory(const std::wstring& path) {
    const WaitPointer pointer;
    tree_.Open(path);
    dir1_.Show(tree_.Rows(), tree_.OpenRow());
}

void frmBrowse::OpenDrive(wchar_t letter) {
    OpenDirectory(FullPath(std::wstring(1, letter) + L":"));
    openDrive_ = letter;
    SelectOpenDrive();
}

void frmBrowse::SelectOpenDrive() {
    const auto found = std::find_if(drives_.begin(), drives_.end(), [this](const Drive& drive) {
        return drive.Letter == openDrive_;
    });
    Send(IDC_DRIVE1, CB_SETCURSEL,
         found == drives_.end() ? static_cast<WPARAM>(-1)
                                : static_cast<WPARAM>(found - drives_.begin()));
}

void frmBrowse::cmdOk_Click() {
    if (!tree_.Path().empty()) {
        SetWindowTextW(txtFolder_, tree_.Path().c_str());
    }
    Unload();
}

}  // namespace ambrio
