#pragma once

#include <array>

#include "config/FolderBox.h"
#include "config/Form.h"
#include "config/model/CopyRulesFrame.h"
#include "config/model/SetProperties.h"

namespace ambrio {

// The properties of the Set that DialogContext::CurrentSetName names, or of a new one. OK writes
// them and leaves the Set's name there; Cancel leaves everything as it was.
class frmProperties : public Form {
  public:
    explicit frmProperties(DialogContext& context);

  protected:
    void Form_Load() override;
    void OnCommand(int control, int notification) override;
    [[nodiscard]] HWND FirstFocus() const override;

  private:
    void Click(int control);
    void lstScheme_Notify(int notification);
    void ApplySchemeText(const std::wstring& scheme);
    void cmdBrowse_Click(std::int16_t index);
    void cmdAdvanced_Click();
    void cmdOk_Click();

    void ShowProperties(const SetProperties& properties);
    [[nodiscard]] SetProperties ReadProperties() const;
    void ShowRules(const CopyRulesFrame& rules);
    [[nodiscard]] CopyRulesFrame ReadRules() const;

    std::array<FolderBox, 2> folderBoxes_;  // source, destination
};

}  // namespace ambrio
