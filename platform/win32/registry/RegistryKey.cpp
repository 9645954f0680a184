#include "platform/win32/registry/RegistryKey.h"

#include <utility>

namespace ambrio {

RegistryKey OpenRegistryKey(HKEY parent, const std::wstring& name, REGSAM rights) {
    HKEY key = nullptr;
    return RegOpenKeyExW(parent, name.c_str(), 0, rights, &key) == ERROR_SUCCESS ? RegistryKey(key)
                                                                                 : RegistryKey();
}

std::optional<RegistryBytes> ReadRegistryBytes(HKEY key, const std::wstring& name,
                                               std::size_t longest) {
    std::vector<std::uint8_t> bytes(longest);
    DWORD type = REG_NONE;
    auto size = static_cast<DWORD>(bytes.size());
    if (RegQueryValueExW(key, name.c_str(), nullptr, &type, bytes.data(), &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    bytes.resize(size);
    return RegistryBytes{RegistryType{type}, std::move(bytes)};
}

}  // namespace ambrio
