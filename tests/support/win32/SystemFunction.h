#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The function of the system, which the program's imports may have been turned away from. The first
// argument only says its type. The library is loaded already.
template <typename Function>
[[nodiscard]] Function* SystemFunction(Function*, const char* name,
                                       const wchar_t* library = L"kernel32.dll") {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
}

}  // namespace ambrio
