#include "platform/win32/files/FullPath.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

std::wstring FullPath(const std::wstring& text) {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetFullPathNameW(text.c_str(), static_cast<DWORD>(path.size()), path.data(),
                                      nullptr)) >= path.size()) {
        path.resize(length + 1);
    }
    path.resize(length);
    return path;
}

}  // namespace ambrio
