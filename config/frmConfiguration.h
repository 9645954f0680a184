#pragma once

#include "config/Form.h"
#include "config/model/SetListModel.h"
#include "platform/win32/windows/CheckListBox.h"

namespace ambrio {

// The list of Sets and the general options. The user's edits live in the controls only; OK writes
// them. There is no Cancel: the close box discards them.
class frmConfiguration : public Form {
  public:
    explicit frmConfiguration(DialogContext& context);

  protected:
    void Form_Load() override;
    void OnCommand(int control, int notification) override;
    bool OnListKey(int control, WORD key) override;
    void OnDrawItem(const DRAWITEMSTRUCT& item) override;

  private:
    void SetProgramIcon();
    void FillSavers();
    void Click(int button);
    void cmdMove_Click(bool (SetListModel::*move)());
    void cmdNew_Click();
    void cmdRemove_Click();
    void cmdProperties_Click();
    void cmdSettings_Click();
    void cmdAbout_Click();
    void cmdOk_Click();

    void ShowProperties();
    [[nodiscard]] SetListModel ListedSets() const;
    void ShowSets(const SetListModel& sets);

    CheckListBox lstSets_;
};

}  // namespace ambrio
