#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Gives a file that is open with the right to delete it the name of another extended path on its
// volume, in one step. Without `overwrite` an existing file of that name is refused. Gives the
// Win32 error code, 0 for success; after a failure the file has its old name.
[[nodiscard]] DWORD RenameOpenFile(HANDLE file, const std::wstring& extended, bool overwrite);

}  // namespace ambrio
