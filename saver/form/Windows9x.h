#pragma once

#include <cstdint>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// What only the Windows 9x family knows of screen savers. On the Windows NT family the system asks
// for the password itself, and none of this is called.

inline constexpr std::int32_t kPlatformNt = 2;

// The system's platform identifier.
[[nodiscard]] std::int32_t GetPlatform();

// Keeps the user from switching away while the saver runs.
void TellScreenSaverRunning(bool running);

// Asks the user for the screen saver's password in a dialog over `owner`, by the system's
// password control-panel module. False when it was wrong or the user gave up; true when the system
// has no such module, since nobody could then ever come back.
[[nodiscard]] bool VerifyScreenSavePwd(HWND owner);

}  // namespace ambrio
