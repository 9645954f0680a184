#pragma once

#include <string>

namespace ambrio {

// Folders of the system, without a separator at their end unless they are the root of a drive.
// Paths of any length. Empty when the system cannot tell.

[[nodiscard]] std::wstring GetWindowsFolder();
[[nodiscard]] std::wstring GetSystemFolder();

// The user's local application data.
[[nodiscard]] std::wstring GetLocalDataFolder();

// Where the program file lies; never a separator at its end, not even for a root.
[[nodiscard]] std::wstring GetProgramFolder();

}  // namespace ambrio
