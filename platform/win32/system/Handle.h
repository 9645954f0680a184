#pragma once

#include <memory>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Owners of system handles, for std::unique_ptr. Both of the system's "no handle" values own
// nothing; use MakeHandle to turn a call's result into an owner.
struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
struct FindCloser {
    void operator()(HANDLE search) const { FindClose(search); }
};
using UniqueHandle = std::unique_ptr<void, HandleCloser>;
using UniqueFindHandle = std::unique_ptr<void, FindCloser>;

// The owner of a handle that CreateFile or FindFirstFile gave; empty when the call failed. It
// leaves the last error code alone.
template <typename Owner>
[[nodiscard]] Owner MakeHandle(HANDLE handle) {
    return Owner(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

}  // namespace ambrio
