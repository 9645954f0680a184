#include "saver/model/DesktopSettings.h"

#include <optional>

#include "platform/Rounding.h"
#include "platform/Val.h"

namespace ambrio {
namespace {

bool IsSet(const DesktopValue& value, const std::wstring& name) {
    return Val(value(name)) != 0;
}

// The timeout of a power-saving stage in seconds; nothing when the stage is switched off.
std::optional<std::int32_t> StageTimeout(const DesktopValue& value, const std::wstring& active,
                                         const std::wstring& timeout) {
    if (!IsSet(value, active)) {
        return std::nullopt;
    }
    return RoundToInt32(Val(value(timeout)));
}

}  // namespace

DesktopSettings ReadDesktopSettings(const DesktopValue& value) {
    DesktopSettings settings;
    settings.UsePassword = IsSet(value, L"ScreenSaveUsePassword");
    const auto lowPower =
        StageTimeout(value, L"ScreenSaveLowPowerActive", L"ScreenSaveLowPowerTimeout");
    const auto powerOff =
        StageTimeout(value, L"ScreenSavePowerOffActive", L"ScreenSavePowerOffTimeout");
    settings.PowerSaveActive = powerOff || lowPower;
    if (powerOff && (!lowPower || *powerOff < *lowPower)) {
        settings.PowerSaveTimeout = *powerOff;
    } else if (lowPower) {
        settings.PowerSaveTimeout = *lowPower;
    }
    return settings;
}

}  // namespace ambrio
