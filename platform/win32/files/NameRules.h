#pragma once

#include <string>

namespace ambrio {

// Whether an extended path leads to a drive of this machine, and not to a server or to where nobody
// can tell.
[[nodiscard]] bool IsOnOwnDisk(const std::wstring& extended);

// Whether the folder tells names apart by their case, as it may be told to since Windows 10. False
// when the system knows nothing of that, and when the folder cannot be opened.
[[nodiscard]] bool TellsCasesApart(const std::wstring& extendedFolder);

// A name, or a path, in the form in which two spellings of one file are equal texts: without a
// locale's own casing rules it is the mapping that the system's own disks use.
[[nodiscard]] std::wstring FoldName(const std::wstring& name);

}  // namespace ambrio
