#pragma once

#include <string>

#include "platform/WindowState.h"

namespace ambrio {

// Starts a program by its command line and does not wait for it. A name without a folder is one of
// the Windows folder or else of the system's (GetSystemFolders), and of no other; the program need
// not be in quotes. False when it could not be started.
[[nodiscard]] bool LaunchProgram(const std::wstring& commandLine, WindowState state);

}  // namespace ambrio
