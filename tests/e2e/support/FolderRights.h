#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

// Gives everyone these rights on a folder, and nobody more. Throws std::system_error when that is
// refused.
void SetFolderRights(const std::wstring& folder, DWORD rights);

// Whether this process can make something in the folder, whatever its rights say.
[[nodiscard]] bool IsFolderWritable(const std::wstring& folder);

}  // namespace ambrio::e2e
