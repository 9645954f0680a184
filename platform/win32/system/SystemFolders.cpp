#include "platform/win32/system/SystemFolders.h"

#include <memory>
#include <utility>

#include "platform/win32/system/TextOfCall.h"

namespace ambrio {
namespace {

struct FreeTaskMemory {
    void operator()(wchar_t* memory) const { CoTaskMemFree(memory); }
};

}  // namespace

std::wstring GetWindowsFolder() {
    return TextOfCall(GetWindowsDirectoryW);
}

std::wstring GetSystemFolder() {
    return TextOfCall(GetSystemDirectoryW);
}

std::vector<std::wstring> GetSystemFolders() {
    std::vector<std::wstring> folders = {GetSystemFolder()};
    std::wstring other = TextOfCall(GetSystemWow64DirectoryW);
    if (!other.empty()) {
        folders.push_back(std::move(other));
    }
    return folders;
}

std::wstring GetLocalDataFolder() {
    PWSTR raw = nullptr;
    const HRESULT result = SHGetKnownFolderPath(FOLDERID_LocalAppData, 0, nullptr, &raw);
    const std::unique_ptr<wchar_t, FreeTaskMemory> path(raw);
    return SUCCEEDED(result) && path ? std::wstring(path.get()) : std::wstring();
}

std::wstring GetProgramFolder() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) ==
           path.size()) {
        path.resize(2 * path.size());
    }
    path.resize(length);
    const std::size_t separator = path.find_last_of(L'\\');
    return separator == std::wstring::npos ? std::wstring() : path.substr(0, separator);
}

}  // namespace ambrio
