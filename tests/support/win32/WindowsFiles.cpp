#include "tests/support/win32/WindowsFiles.h"

#include <cstdlib>
#include <system_error>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

bool RunsOnWine() {
    return WineVersion() != 0;
}

int WineVersion() {
    using GetVersion = const char* (*)();
    const auto version = reinterpret_cast<GetVersion>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")));
    return version == nullptr ? 0 : std::atoi(version());
}

std::wstring LoadWindowsFiles() {
    if (!RunsOnWine()) {
        return {};
    }
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    path = path.substr(0, path.find_last_of(L'\\') + 1) + L"WindowsFiles.dll";
    if (GetModuleHandleW(path.c_str()) == nullptr && LoadLibraryW(path.c_str()) == nullptr) {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "loading WindowsFiles.dll");
    }
    return path;
}

}  // namespace ambrio
