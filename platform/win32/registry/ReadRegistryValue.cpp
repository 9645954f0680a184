#include "platform/win32/registry/ReadRegistryValue.h"

#include "platform/RegistryValue.h"
#include "platform/win32/registry/RegistryKey.h"

namespace ambrio {

std::wstring ReadRegistryValue(HKEY root, const std::wstring& subkey, const std::wstring& name) {
    const RegistryKey key = OpenRegistryKey(root, subkey, KEY_READ);
    if (!key) {
        return {};
    }
    const auto value = ReadRegistryBytes(key.get(), name, kLongestRegistryValue * sizeof(wchar_t));
    return value ? RegistryValueText(value->Type, value->Bytes) : std::wstring();
}

}  // namespace ambrio
