#pragma once

#include <string>

namespace ambrio {

// The form of a path that the system takes as it stands, at any length and with any name:
// "\\?\C:\x" or "\\?\UNC\server\share\x", without a separator at its end except after a drive's
// colon. A path that is relative or has ".", "..", forward slashes or doubled separators is
// completed first; other paths keep names that end in dots or blanks or spell a device. For the
// file system's own calls only, never to be shown: on a 64-bit system a path below the system's
// folder is spelled so that this program, too, gets there. Throws RuntimeError: PathNotFound for a
// text that names no place at all (empty, separators alone, a server without a share),
// BadFileNameOrNumber for a device.
[[nodiscard]] std::wstring ExtendedPath(const std::wstring& path);

// The two parts of an extended path: the folder, and the name after its last separator.
[[nodiscard]] std::wstring FolderOfExtended(const std::wstring& extended);
[[nodiscard]] std::wstring NameOfExtended(const std::wstring& extended);

}  // namespace ambrio
