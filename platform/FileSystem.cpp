#include "platform/FileSystem.h"

namespace ambrio {

std::wstring FileSystem::BuildPath(const std::wstring& folder, const std::wstring& name) {
    if (folder.empty()) {
        return name;
    }
    const wchar_t last = folder.back();
    std::wstring path;
    path.reserve(folder.size() + 1 + name.size());
    path = folder;
    if (last != L'\\' && last != L'/') {
        path += L'\\';
    }
    return path += name;
}

}  // namespace ambrio
