#pragma once

namespace ambrio {

enum class DriveKind { Unknown, Removable, Fixed, Network, Compact, Memory };

}  // namespace ambrio
