#pragma once

#include <string>

#include "platform/DriveKind.h"

namespace ambrio {

// The line of a drive in the drive list, such as "C: Local disk [System]". The label is the
// volume's, or where a network drive leads; without one the brackets are left out.
[[nodiscard]] std::wstring DriveText(wchar_t letter, DriveKind kind, const std::wstring& label);

}  // namespace ambrio
