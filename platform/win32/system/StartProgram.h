#pragma once

#include <string>

namespace ambrio {

enum class StartedWindow { Hidden, MinimisedFocus, NormalFocus };

// Starts a program by its command line and does not wait for it. A name without a folder is found
// through the system's search path; the program need not be in quotes. False when it could not be
// started.
[[nodiscard]] bool StartProgram(const std::wstring& commandLine, StartedWindow window);

}  // namespace ambrio
