#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace ambrio {

// What the desktop's settings say about screen savers.
struct DesktopSettings {
    bool UsePassword = false;
    bool PowerSaveActive = false;
    std::int32_t PowerSaveTimeout = 0;  // seconds until the first active power-saving stage
};

// Gives the text of a value of the key "Control Panel\Desktop"; empty when it is missing.
using DesktopValue = std::function<std::wstring(const std::wstring& name)>;

// Reads them. A missing value counts as 0; a timeout is read only when its stage is active. Throws
// RuntimeError Overflow when a timeout does not fit 32 bits.
[[nodiscard]] DesktopSettings ReadDesktopSettings(const DesktopValue& value);

}  // namespace ambrio
