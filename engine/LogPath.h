#pragma once

#include <string>

#include "platform/Application.h"
#include "platform/FileSystem.h"

namespace ambrio {

// Where the log lies: beside the program or, where nothing can be written there or the log that is
// there is not this user's to write (as an administrator's run may leave it), in a folder of its
// own, which is made, below the user's local application data. Never fails; a folder that cannot be
// made shows when the log is opened. Tries out the program's folder, so whoever needs the path more
// than once keeps it.
[[nodiscard]] std::wstring LogPath(const Application& application, FileSystem& fileSystem);

}  // namespace ambrio
