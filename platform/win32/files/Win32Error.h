#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Throw the RuntimeError for a Win32 error code, for that of the call that failed last.
[[noreturn]] void ThrowWin32(DWORD code);
[[noreturn]] void ThrowLastError();

// The same for an operation on an extended path. A missing level above it is always PathNotFound.
[[noreturn]] void ThrowForPath(DWORD code, const std::wstring& extended);

}  // namespace ambrio
