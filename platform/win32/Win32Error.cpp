#include "platform/win32/Win32Error.h"

#include "platform/RuntimeError.h"

namespace ambrio {

void ThrowWin32(DWORD code) {
    throw RuntimeError(NumberOfWin32Code(code));
}

void ThrowLastError() {
    ThrowWin32(GetLastError());
}

}  // namespace ambrio
