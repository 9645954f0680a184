#include "platform/win32/system/SystemLibrary.h"

#include "platform/FileSystem.h"
#include "platform/win32/system/SystemFolders.h"

namespace ambrio {

SystemLibrary::SystemLibrary(const std::wstring& fileName) {
    const std::wstring folder = GetSystemFolder();
    // The name alone would be looked for elsewhere.
    if (!folder.empty()) {
        library_.reset(LoadLibraryW(FileSystem::BuildPath(folder, fileName).c_str()));
    }
}

void* SystemLibrary::Address(const char* name) const {
    if (library_ == nullptr) {
        return nullptr;
    }
    return reinterpret_cast<void*>(GetProcAddress(library_.get(), name));
}

}  // namespace ambrio
