#include "platform/win32/files/FullPath.h"

#include "platform/win32/system/TextOfCall.h"

namespace ambrio {

std::wstring FullPath(const std::wstring& text) {
    return TextOfCall([&text](wchar_t* path, DWORD size) {
        return GetFullPathNameW(text.c_str(), size, path, nullptr);
    });
}

}  // namespace ambrio
