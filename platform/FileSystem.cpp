#include "platform/FileSystem.h"

namespace ambrio {

std::wstring FileSystem::BuildPath(const std::wstring& folder, const std::wstring& name) {
    if (folder.empty()) {
        return name;
    }
    const wchar_t last = folder.back();
    return last == L'\\' || last == L'/' ? folder + name : folder + L'\\' + name;
}

}  // namespace ambrio
