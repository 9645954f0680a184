#include "engine/CopyRule.h"

#include "settings/SettingKeys.h"

namespace ambrio {

CopyRule CopyRuleOf(const std::wstring& rsCopyType) {
    if (rsCopyType == kCopyTypeArchiveBit) {
        return {kAttributeArchive, kAttributeArchive};
    }
    if (rsCopyType == kCopyTypeReadOnly) {
        return {kAttributeReadOnly, 0};
    }
    return {};
}

}  // namespace ambrio
