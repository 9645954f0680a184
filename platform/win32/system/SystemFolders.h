#pragma once

#include <string>
#include <vector>

namespace ambrio {

// Folders of the system, without a separator at their end unless they are the root of a drive.
// Paths of any length. Empty when the system cannot tell.

[[nodiscard]] std::wstring GetWindowsFolder();
[[nodiscard]] std::wstring GetSystemFolder();
// All folders of the system's own programs: the System folder and, on a 64-bit system, the one for
// those of 32 bits.
[[nodiscard]] std::vector<std::wstring> GetSystemFolders();

// The user's local application data.
[[nodiscard]] std::wstring GetLocalDataFolder();

// Where the program file lies; never a separator at its end, not even for a root.
[[nodiscard]] std::wstring GetProgramFolder();

}  // namespace ambrio
