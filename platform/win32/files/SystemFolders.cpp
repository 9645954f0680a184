#include "platform/win32/files/SystemFolders.h"

#include <memory>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {
namespace {

// For the calls that, given too little room, return the room that they need.
std::wstring FolderFrom(UINT(WINAPI* call)(LPWSTR, UINT)) {
    std::wstring path(MAX_PATH, L'\0');
    UINT length = call(path.data(), static_cast<UINT>(path.size()));
    while (length >= path.size()) {
        path.resize(length + 1);
        length = call(path.data(), static_cast<UINT>(path.size()));
    }
    path.resize(length);
    return path;
}

struct FreeTaskMemory {
    void operator()(wchar_t* memory) const { CoTaskMemFree(memory); }
};

}  // namespace

std::wstring GetWindowsFolder() {
    return FolderFrom(GetWindowsDirectoryW);
}

std::wstring GetSystemFolder() {
    return FolderFrom(GetSystemDirectoryW);
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
