#pragma once

#include <string>

#include "platform/DateTime.h"
#include "platform/SettingsStore.h"

namespace ambrio {

// The general options; what is missing takes its default and is not written back. A run reads each
// at its own moment.

// The names of the Sets as stored; empty when there are none.
[[nodiscard]] std::wstring ReadSets(SettingsStore& settings);

// False unless exactly "Yes" is stored.
[[nodiscard]] bool ReadLogOnlyErrors(SettingsStore& settings);

// The name of the secondary screen saver without its extension; empty for none.
[[nodiscard]] std::wstring ReadSecondarySaver(SettingsStore& settings);

// When the last run started; day zero when none did or when the user's locale cannot read the text,
// so that the next run counts as the first of its day.
[[nodiscard]] DateTime ReadLastRun(SettingsStore& settings);

// Throws RuntimeError when the store refuses; the old value then stays.
void SaveLastRun(SettingsStore& settings, const DateTime& start);

}  // namespace ambrio
