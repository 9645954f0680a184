#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace ambrio {

// The base names of the savers in folders that count as one, in the file system's order; a name
// that a folder before had is left out. A folder that cannot be listed has none.
[[nodiscard]] std::vector<std::wstring> SaversIn(FileSystem& fileSystem,
                                                 const std::vector<std::wstring>& folders);

// The path of the saver with that base name: the first folder that has it wins; nothing when none
// has.
[[nodiscard]] std::optional<std::wstring> SaverPath(FileSystem& fileSystem,
                                                    const std::vector<std::wstring>& folders,
                                                    const std::wstring& baseName);

// The command line that shows a saver's own settings. The path stands without quotes, as savers
// have always been started; the system finds the program among the blanks.
[[nodiscard]] std::wstring SettingsCommandLine(const std::wstring& saverPath);

}  // namespace ambrio
