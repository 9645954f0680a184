#include "platform/win32/SystemLibrary.h"

namespace ambrio {

SystemLibrary::SystemLibrary(const std::wstring& fileName) {
    std::wstring path(MAX_PATH, L'\0');
    const UINT length = GetSystemDirectoryW(path.data(), MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        return;
    }
    path.resize(length);
    library_.reset(LoadLibraryW((path + L"\\" + fileName).c_str()));
}

void* SystemLibrary::Address(const char* name) const {
    if (library_ == nullptr) {
        return nullptr;
    }
    return reinterpret_cast<void*>(GetProcAddress(library_.get(), name));
}

}  // namespace ambrio
