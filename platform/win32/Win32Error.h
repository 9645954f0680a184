#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Throw the RuntimeError for a Win32 error code, for that of the call that failed last.
[[noreturn]] void ThrowWin32(DWORD code);
[[noreturn]] void ThrowLastError();

}  // namespace ambrio
