#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

// What a process holds at a moment, seen from outside.
struct Holdings {
    DWORD GdiHandles = 0;     // zero under Wine for another process
    DWORD UserHandles = 0;    // the same
    DWORD Handles = 0;        // of files, threads, events and so on
    SIZE_T PrivateBytes = 0;  // memory of its own
    SIZE_T WorkingSet = 0;    // bytes of it that are in memory now, shared ones too
};

// `process` must be open for reading its information and memory. Throws std::system_error when it
// cannot be asked.
[[nodiscard]] Holdings HoldingsOf(HANDLE process);
// The same for a process that is found by its number.
[[nodiscard]] Holdings HoldingsOf(DWORD processId);

}  // namespace ambrio::e2e
