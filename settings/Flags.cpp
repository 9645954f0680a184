#include "settings/Flags.h"

#include "settings/SettingKeys.h"

namespace ambrio {

bool ReadFlag(SettingsStore& settings, const std::wstring& section, const std::wstring& key) {
    return settings.GetSetting(section, key, L"") == kYes;
}

void SaveFlag(SettingsStore& settings, const std::wstring& section, const std::wstring& key,
              bool value) {
    settings.SaveSetting(section, key, YesNo(value));
}

}  // namespace ambrio
