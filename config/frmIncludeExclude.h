#pragma once

#include "config/Form.h"

namespace ambrio {

// Shows the file-selection patterns of the Set being edited. Its buttons have no action, by design:
// only the close box leaves it, and nothing is ever written.
class frmIncludeExclude : public Form {
  public:
    explicit frmIncludeExclude(DialogContext& context);

    // Fills the loaded dialog. The caption bears `rsSet`; the patterns are those of
    // DialogContext::CurrentSetName, which is empty for a Set that was never saved.
    void Init(const std::wstring& rsSet);

  protected:
    void Form_Load() override;
    void OnCommand(int, int) override {}
};

}  // namespace ambrio
