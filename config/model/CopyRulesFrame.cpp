#include "config/model/CopyRulesFrame.h"

#include "settings/SettingKeys.h"

namespace ambrio {

void SetCheckBoxes(CopyRulesFrame& rules) {
    const bool isDateTime = rules.Chosen == CopyTypeOption::DateTime;
    if (isDateTime || rules.Chosen == CopyTypeOption::Archive) {
        rules.DeleteCopyReadOnly = false;
    }
    if (isDateTime || rules.Chosen == CopyTypeOption::ReadOnly) {
        rules.ClearArchive = false;
        rules.DeleteCopyArchive = false;
    }
}

void ChooseOption(CopyRulesFrame& rules, CopyTypeOption option) {
    rules.Chosen = option;
    SetCheckBoxes(rules);
}

void ApplyScheme(CopyRulesFrame& rules, const std::wstring& scheme) {
    if (scheme == kSchemes[0]) {
        rules.IsFrameEnabled = true;
        return;
    }
    if (scheme == kSchemes[1]) {
        ChooseOption(rules, CopyTypeOption::DateTime);
    } else if (scheme == kSchemes[2]) {
        ChooseOption(rules, CopyTypeOption::Archive);
        rules.ClearArchive = false;
        rules.DeleteCopyArchive = true;
    } else if (scheme == kSchemes[3]) {
        ChooseOption(rules, CopyTypeOption::ReadOnly);
        rules.DeleteCopyReadOnly = true;
    } else {
        return;
    }
    rules.IsFrameEnabled = false;
}

}  // namespace ambrio
