#pragma once

#include <cstdint>
#include <string>

#include "platform/FileSystem.h"

namespace ambrio {

// The texts of the dialogs that are put together at run time. The others lie in the resources.

// Which folder box the browse dialog fills.
inline constexpr std::int16_t kBrowseSource = 0;
inline constexpr std::int16_t kBrowseDestination = 1;

[[nodiscard]] std::wstring ConfigurationCaption(const std::wstring& title);
// Speaks of the Windows folder where the log lies there, beside the program; elsewhere it names the
// log's own path.
[[nodiscard]] std::wstring LogOnlyErrorsTooltip(const FileSystem& fileSystem,
                                                const std::wstring& title,
                                                const std::wstring& logFile,
                                                const std::wstring& windowsFolder);
[[nodiscard]] std::wstring RemoveQuestion(const std::wstring& setName);

// For a new Set the name is empty.
[[nodiscard]] std::wstring PropertiesCaption(const std::wstring& setName);

// For a new Set the name is empty, and two blanks stand in a row.
[[nodiscard]] std::wstring BrowseCaption(const std::wstring& setName, std::int16_t browseIndex);
// Why a drive was not opened, `reason` being the failure's description.
[[nodiscard]] std::wstring DriveFailureText(wchar_t letter, const std::wstring& reason);

[[nodiscard]] std::wstring FileSelectionCaption(const std::wstring& setName);

[[nodiscard]] std::wstring AboutCaption(const std::wstring& title);
[[nodiscard]] std::wstring VersionText(int major, int minor, int revision);

}  // namespace ambrio
