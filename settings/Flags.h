#pragma once

#include <string>

#include "platform/SettingsStore.h"

namespace ambrio {

// The settings that say yes or no. True when exactly "Yes" is stored; "yes" is no yes, and what is
// missing is none either.
[[nodiscard]] bool ReadFlag(SettingsStore& settings, const std::wstring& section,
                            const std::wstring& key);

// Stores "Yes" or "No". Throws RuntimeError when the store refuses; the old value then stays.
void SaveFlag(SettingsStore& settings, const std::wstring& section, const std::wstring& key,
              bool value);

}  // namespace ambrio
