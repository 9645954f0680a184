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

// Which file or folder was opened by this path; nothing when neither its file system nor its final
// path can tell.
[[nodiscard]] std::optional<FileIdentity> IdentityOfOpen(HANDLE file, const std::wstring& extended);

// Which file or folder a path leads to, links followed; nothing when neither its file system nor
// its final path can tell. Gives the Win32 error code, 0 for success.
[[nodiscard]] DWORD ReadFileIdentity(const std::wstring& extended,
                                     std::optional<FileIdentity>& identity);
// The same; nothing also when the file cannot be opened.
[[nodiscard]] std::optional<FileIdentity> ReadFileIdentity(const std::wstring& extended);

}  // namespace ambrio
