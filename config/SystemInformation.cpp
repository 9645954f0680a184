#include "config/SystemInformation.h"

#include <array>
#include <span>

#include "config/model/RegistryText.h"
#include "platform/win32/registry/RegistryKey.h"
#include "platform/win32/system/StartProgram.h"

namespace ambrio {
namespace {

constexpr REGSAM kAllAccess = 0x2003F;
constexpr DWORD kLongestValue = 1024;  // characters, or bytes of what is no text

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

bool FindTool(FileSystem& fileSystem, std::wstring& path) {
    if (GetKeyValue(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", L"PATH",
                    path)) {
        return true;
    }
    if (!GetKeyValue(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Shared Tools Location", L"MSINFO",
                     path)) {
        return false;
    }
    path += L"\\MSINFO32.EXE";
    return fileSystem.FileExists(path);
}

}  // namespace

bool GetKeyValue(HKEY KeyRoot, const std::wstring& KeyName, const std::wstring& SubKeyRef,
                 std::wstring& KeyVal) {
    KeyVal.clear();
    HKEY opened = nullptr;
    if (RegOpenKeyExW(KeyRoot, KeyName.c_str(), 0, kAllAccess, &opened) != ERROR_SUCCESS) {
        return false;
    }
    const RegistryKey key(opened);
    std::array<std::uint8_t, kLongestValue * sizeof(wchar_t)> bytes = {};
    DWORD size = static_cast<DWORD>(bytes.size());
    DWORD type = REG_NONE;
    if (RegQueryValueExW(key.get(), SubKeyRef.c_str(), nullptr, &type, bytes.data(), &size) !=
            ERROR_SUCCESS ||
        (!IsText(type) && size > kLongestValue)) {
        return false;
    }
    KeyVal = RegistryText(static_cast<RegistryType>(type), std::span(bytes).first(size));
    return true;
}

bool StartSysInfo(FileSystem& fileSystem) {
    std::wstring path;
    return FindTool(fileSystem, path) && StartProgram(path, StartedWindow::NormalFocus);
}

}  // namespace ambrio
