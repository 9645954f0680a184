#pragma once

#include "config/Form.h"

namespace ambrio {

// The title and version of the program, the way to the system's information tool and to the
// program's web page.
class frmAbout : public Form {
  public:
    explicit frmAbout(DialogContext& context);

  protected:
    void Form_Load() override;
    void OnCommand(int control, int notification) override;
    [[nodiscard]] HWND FirstFocus() const override;

  private:
    void cmdSysInfo_Click();
    void cmdWWW_Click();
};

}  // namespace ambrio
