#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Whether a message says that the user has pressed or turned something: a button or a wheel of the
// mouse, a pen, a finger on the screen.
[[nodiscard]] bool IsPress(UINT message);

}  // namespace ambrio
