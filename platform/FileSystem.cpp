#include "platform/FileSystem.h"

namespace ambrio {

std::unique_ptr<PreparedCopy> FileSystem::PrepareCopy(const ExpectedCopy&,
                                                      const std::function<bool()>&) {
    return nullptr;
}

std::optional<std::uint64_t> FileSystem::FreeBytes(const std::wstring&) {
    return std::nullopt;
}

void FileSystem::ExpectCopies(const std::vector<ExpectedCopy>&) {}
void FileSystem::ExpectNothing() {}
void FileSystem::EndExpecting() {}

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
