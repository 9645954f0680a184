#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/SettingsStore.h"

namespace ambrio {

// The entry of the list of secondary savers that stands for none.
inline constexpr const wchar_t* kNoSaver = L"(None)";

// What the configuration dialog shows beside the list of Sets.
struct DialogOptions {
    bool LogOnlyErrors = false;
    bool ClearLogDaily = false;
    std::wstring SecondarySaver;  // as stored when loaded, as the list shows it when saved
};

[[nodiscard]] DialogOptions LoadDialogOptions(SettingsStore& settings);

// Writes the three values; kNoSaver is stored as the empty text. Throws RuntimeError when the
// store refuses; what was written before that stays.
void SaveDialogOptions(SettingsStore& settings, const DialogOptions& options);

// Which entry of the sorted list is to be current for the stored saver; none when it is not there.
[[nodiscard]] std::optional<std::size_t> SaverToSelect(const std::vector<std::wstring>& sorted,
                                                       const std::wstring& stored);

}  // namespace ambrio
