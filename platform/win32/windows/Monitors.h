#pragma once

#include <vector>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Where the monitors lie that the desktop is shown on, in pixels of the screen; the corner of the
// primary one is (0, 0). Empty when the system does not tell.
[[nodiscard]] std::vector<RECT> MonitorPlaces();

}  // namespace ambrio
