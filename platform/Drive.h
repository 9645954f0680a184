#pragma once

#include <string>

namespace ambrio {

enum class DriveKind { Unknown, Removable, Fixed, Network, Compact, Memory };

// One drive of the machine.
struct Drive {
    wchar_t Letter = L'\0';
    DriveKind Kind = DriveKind::Unknown;
    std::wstring Label;  // the volume's; of a network drive, the share
};

}  // namespace ambrio
