#pragma once

#include <optional>
#include <string>

#include "platform/FileSystem.h"

namespace ambrio {

// Whether two paths lead to one and the same file; nothing when that cannot be told, as where one
// of them leads nowhere. Asks the file system each time.
[[nodiscard]] std::optional<bool> AreOneFile(FileSystem& fileSystem, const std::wstring& one,
                                             const std::wstring& other);

}  // namespace ambrio
