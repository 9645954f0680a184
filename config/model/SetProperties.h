#pragma once

#include <optional>
#include <string>

#include "config/model/CopyRulesFrame.h"
#include "config/model/Schemes.h"
#include "platform/SettingsStore.h"
#include "settings/SettingKeys.h"

namespace ambrio {

// The store refuses a longer section, and so a longer name of a Set.
inline constexpr int kLongestSetName = 255;

// What the properties dialog shows of one Set.
struct SetProperties {
    std::wstring Name;  // as typed
    std::wstring Source;
    std::wstring Destination;
    bool Recursive = false;
    bool OverwriteReadOnly = false;
    std::wstring Scheme = kOwnRules;  // the text of the box, which need not be a scheme's name
    CopyRulesFrame Rules;
};

// What a new Set starts with.
[[nodiscard]] SetProperties NewSetProperties();

// What the store says of an existing Set; a missing or odd value takes its default.
[[nodiscard]] SetProperties LoadSetProperties(SettingsStore& settings, const std::wstring& name);

// Writes all values into the section of the trimmed name, and returns that name. An empty name
// writes nothing and returns nothing; a name of blanks is not empty. Throws RuntimeError when the
// store refuses; what was written before that stays.
std::optional<std::wstring> SaveSetProperties(SettingsStore& settings,
                                              const SetProperties& properties);

}  // namespace ambrio
