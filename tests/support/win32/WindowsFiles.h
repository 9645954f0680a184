#pragma once

#include <string>

namespace ambrio {

// True under Wine, where some of the system's behaviour cannot be seen. Decides only whether a test
// is skipped and whether the module below is loaded.
[[nodiscard]] bool RunsOnWine();
// The first number of Wine's version, 0 on Windows. Decides only what a cost may be.
[[nodiscard]] int WineVersion();

// Under Wine, makes this process see files as Windows shows them, until its end: loads the module
// that lies beside this program, and gives its path, so that it can be loaded into the programs
// that a test starts. On Windows it does nothing and gives an empty text. Throws std::system_error
// when the module cannot be loaded.
[[nodiscard]] std::wstring LoadWindowsFiles();

}  // namespace ambrio
