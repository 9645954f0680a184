#include "config/model/DialogOptions.h"

#include "settings/Flags.h"
#include "settings/GeneralOptions.h"
#include "settings/SettingKeys.h"

namespace ambrio {

DialogOptions LoadDialogOptions(SettingsStore& settings) {
    return {ReadLogOnlyErrors(settings), ReadFlag(settings, kGeneralSection, kClearLogDailyKey),
            ReadSecondarySaver(settings)};
}

void SaveDialogOptions(SettingsStore& settings, const DialogOptions& options) {
    SaveFlag(settings, kGeneralSection, kLogOnlyErrorsKey, options.LogOnlyErrors);
    SaveFlag(settings, kGeneralSection, kClearLogDailyKey, options.ClearLogDaily);
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
