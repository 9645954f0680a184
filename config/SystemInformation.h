#pragma once

#include "platform/FileSystem.h"

namespace ambrio {

// Finds and starts the system's information tool. False when there is none or it does not start.
[[nodiscard]] bool StartSysInfo(FileSystem& fileSystem);

}  // namespace ambrio
