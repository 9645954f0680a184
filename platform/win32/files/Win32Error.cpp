#include "platform/win32/files/Win32Error.h"

#include "platform/RuntimeError.h"
#include "platform/win32/files/ExtendedPath.h"

namespace ambrio {

void ThrowWin32(DWORD code) {
    throw RuntimeError(NumberOfWin32Code(code));
}

void ThrowLastError() {
    ThrowWin32(GetLastError());
}

void ThrowForPath(DWORD code, const std::wstring& extended) {
    if (code == ERROR_FILE_NOT_FOUND) {
        // Not every system tells a missing drive from a missing file.
        const DWORD folder = GetFileAttributesW(FolderOfExtended(extended).c_str());
        if (folder == INVALID_FILE_ATTRIBUTES || (folder & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            throw RuntimeError(ErrorNumber::PathNotFound);
        }
    }
    ThrowWin32(code);
}

}  // namespace ambrio
