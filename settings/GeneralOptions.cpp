#include "settings/GeneralOptions.h"

#include "platform/GeneralDate.h"
#include "settings/Flags.h"
#include "settings/SettingKeys.h"

namespace ambrio {

std::wstring ReadSets(SettingsStore& settings) {
    return settings.GetSetting(kGeneralSection, kSetsKey, L"");
}

bool ReadLogOnlyErrors(SettingsStore& settings) {
    return ReadFlag(settings, kGeneralSection, kLogOnlyErrorsKey);
}

std::wstring ReadSecondarySaver(SettingsStore& settings) {
    return settings.GetSetting(kGeneralSection, kSecondarySaverKey, L"");
}

DateTime ReadLastRun(SettingsStore& settings) {
    return DateFromText(settings.GetSetting(kGeneralSection, kLastRunKey, L"0"))
        .value_or(DateTime{});
}

void SaveLastRun(SettingsStore& settings, const DateTime& start) {
    settings.SaveSetting(kGeneralSection, kLastRunKey, GeneralDateText(start));
}

}  // namespace ambrio
