#include "config/model/CopyRulesFrame.h"

#include "config/model/Schemes.h"

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

void ApplyScheme(CopyRulesFrame& rules, const std::wstring& scheme) {
    const Scheme* known = FindScheme(scheme);
    if (known == nullptr) {
        return;
    }
    const std::optional<SchemeRules>& fixed = known->Rules;
    if (fixed) {
        rules = {fixed->Option, fixed->ClearArchive, fixed->DeleteCopyArchive,
                 fixed->DeleteCopyReadOnly};
    }
    rules.IsFrameEnabled = !fixed;
}

}  // namespace ambrio
