#pragma once

#include <vector>

#include "config/DirectoryListBox.h"
#include "config/Form.h"
#include "config/model/DirectoryTree.h"
#include "platform/win32/files/Drives.h"

namespace ambrio {

// Lets the user walk drives and directories. OK puts the directory that is open, not the one that
// is merely highlighted, into the folder box it was opened for.
class frmBrowse : public Form {
  public:
    // `txtFolder` is a text box of the dialog that opens this one.
    frmBrowse(DialogContext& context, HWND txtFolder);

  protected:
    void Form_Load() override;
    void OnCommand(int control, int notification) override;
    void OnDrawItem(const DRAWITEMSTRUCT& item) override;
    [[nodiscard]] HWND FirstFocus() const override;

  private:
    void FillDrives();
    void ShowPlace(const std::wstring& text);
    void Drive1_Change();
    void Dir1_Open();
    void cmdOk_Click();

    // Both throw RuntimeError when it cannot be opened; the lists then stay where they were.
    void OpenDirectory(const std::wstring& path);
    void OpenDrive(wchar_t letter);

    void SelectOpenDrive();

    HWND txtFolder_;
    std::vector<Drive> drives_;
    wchar_t openDrive_ = L'\0';
    DirectoryTree tree_;
    DirectoryListBox dir1_;
};

}  // namespace ambrio
