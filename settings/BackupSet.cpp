#include "settings/BackupSet.h"

#include "platform/BooleanText.h"
#include "settings/Flags.h"
#include "settings/SettingKeys.h"

namespace ambrio {

bool ReadSelected(SettingsStore& settings, const std::wstring& name) {
    return BooleanFromText(settings.GetSetting(name, kSelectedKey, BooleanText(true)));
}

void SaveSelected(SettingsStore& settings, const std::wstring& name, bool selected) {
    settings.SaveSetting(name, kSelectedKey, BooleanText(selected));
}

std::optional<BackupSet> LoadBackupSet(SettingsStore& settings, const std::wstring& name) {
    const auto isYes = [&](const wchar_t* key) { return ReadFlag(settings, name, key); };
    if (!ReadSelected(settings, name)) {
        return std::nullopt;
    }
    BackupSet set;
    set.Name = name;
    set.rsSourceDir = settings.GetSetting(name, kSourceKey, L"");
    set.rsDestnDir = settings.GetSetting(name, kDestinationKey, L"");
    set.rbRecursive = isYes(kRecursiveKey);
    set.rsCopyType = settings.GetSetting(name, kCopyTypeKey, kCopyTypeDateTime);
    set.rbOverwriteReadOnly = isYes(kOverwriteReadOnlyKey);
    if (set.rsCopyType == kCopyTypeArchiveBit) {
        set.rbClearArchive = isYes(kClearArchiveBitKey);
        set.rbDeleteCopy = isYes(kDeleteCopyArchiveBitKey);
    } else if (set.rsCopyType == kCopyTypeReadOnly) {
        set.rbDeleteCopy = isYes(kDeleteCopyReadOnlyKey);
    }
    return set;
}

}  // namespace ambrio
