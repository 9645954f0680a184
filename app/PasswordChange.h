#pragma once

#include <cstdint>

namespace ambrio {

// Calls the password-change dialog of the Windows 9x family over the window of that handle, and
// returns when the user has closed it. Elsewhere it does nothing.
void ChangeScreenSaverPassword(std::int32_t ownerWindow);

}  // namespace ambrio
