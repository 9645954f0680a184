#pragma once

#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Reads what the system says of a file or folder that a path leads to, links followed. Gives the
// Win32 error code, 0 for success.
[[nodiscard]] DWORD ReadInformation(const std::wstring& extended,
                                    BY_HANDLE_FILE_INFORMATION& information);

// Nothing when the file system gives the file no number.
[[nodiscard]] std::optional<FileIdentity> IdentityFrom(
    const BY_HANDLE_FILE_INFORMATION& information);
// The same, also when the file cannot be opened.
[[nodiscard]] std::optional<FileIdentity> ReadFileIdentity(const std::wstring& extended);

}  // namespace ambrio
