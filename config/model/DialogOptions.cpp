#include "config/model/DialogOptions.h"

#include "settings/SettingKeys.h"

namespace ambrio {

DialogOptions LoadDialogOptions(SettingsStore& settings) {
    const auto read = [&settings](const wchar_t* key) {
        return settings.GetSetting(kGeneralSection, key, L"");
    };
    return {read(kLogOnlyErrorsKey) == kYes, read(kClearLogDailyKey) == kYes,
            read(kSecondarySaverKey)};
}

void SaveDialogOptions(SettingsStore& settings, const DialogOptions& options) {
    settings.SaveSetting(kGeneralSection, kLogOnlyErrorsKey, YesNo(options.LogOnlyErrors));
    settings.SaveSetting(kGeneralSection, kClearLogDailyKey, YesNo(options.ClearLogDaily));
    settings.SaveSetting(kGeneralSection, kSecondarySaverKey,
                         options.SecondarySaver == kNoSaver ? L"" : options.SecondarySaver);
}

std::optional<std::size_t> SaverToSelect(const std::vector<std::wstring>& sorted,
                                         const std::wstring& stored) {
    if (stored.empty()) {
        return 0;
    }
    // Wanted: entry 0 is not compared, as it is the one for none. A saver that sorts before that
    // is never found again.
    for (std::size_t i = 1; i < sorted.size(); ++i) {
        if (sorted[i] == stored) {
            return i;
        }
    }
    return std::nullopt;
}

}  // namespace ambrio
