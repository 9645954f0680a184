#include "platform/win32/registry/ReadRegistryValue.h"

#include <array>
#include <cstdint>

#include "platform/RegistryValue.h"
#include "platform/win32/registry/RegistryKey.h"

namespace ambrio {

std::wstring ReadRegistryValue(HKEY root, const std::wstring& subkey, const std::wstring& name) {
    HKEY raw = nullptr;
    if (RegOpenKeyExW(root, subkey.c_str(), 0, KEY_READ, &raw) != ERROR_SUCCESS) {
        return {};
    }
    const RegistryKey key(raw);
    std::array<std::uint8_t, kLongestRegistryValue * sizeof(wchar_t)> bytes{};
    DWORD type = REG_NONE;
    DWORD length = bytes.size();
    if (RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, bytes.data(), &length) !=
        ERROR_SUCCESS) {
        return {};
    }
    return RegistryValueText(RegistryType{type}, std::span(bytes).first(length));
}

}  // namespace ambrio
