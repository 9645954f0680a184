#pragma once

#include <memory>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<void, HandleCloser>;

struct RegistryKeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using UniqueKey = std::unique_ptr<HKEY__, RegistryKeyCloser>;

// Throws std::system_error with the Win32 code, by default the calling thread's last error.
[[noreturn]] void ThrowWin32Error(const char* doing, DWORD code = GetLastError());

}  // namespace ambrio::e2e
