#pragma once

#include <string>

#include "platform/Drive.h"

namespace ambrio {

// The line of a drive in the drive list, such as "C: Local disk [System]"; without a label the
// brackets are left out.
[[nodiscard]] std::wstring DriveText(const Drive& drive);

}  // namespace ambrio
