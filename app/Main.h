#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Sets up the process-wide values, enters the mode that the command line (the arguments only)
// selects, and returns when the last form has unloaded. Throws RuntimeError when the program cannot
// start.
void Main(HINSTANCE instance, const std::wstring& commandLine);

}  // namespace ambrio
