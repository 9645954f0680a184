#pragma once

#include <string>

#include "tests/e2e/support/Handles.h"

// Asks another process for what only it can tell. What fails throws std::system_error or
// std::runtime_error; the process is then left as it is.
namespace ambrio::e2e {

// Calls a function of kernel32.dll that takes one argument, in that process and on a thread of its
// own, and gives its result.
DWORD CallIn(HANDLE process, const char* function, void* argument);

// Writes a text into that process, for such an argument. It is not given back: the process is a
// test's and ends soon.
[[nodiscard]] void* WriteInto(HANDLE process, const std::wstring& text);

}  // namespace ambrio::e2e
