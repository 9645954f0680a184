#pragma once

#include <vector>

#include "platform/Drive.h"

namespace ambrio {

// The drives that there are, by letter. Diskette and network drives are not touched for it, as that
// can take long.
[[nodiscard]] std::vector<Drive> ListDrives();

}  // namespace ambrio
