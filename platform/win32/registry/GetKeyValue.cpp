#include "platform/win32/registry/GetKeyValue.h"

#include "platform/KeyValueText.h"
#include "platform/win32/registry/RegistryKey.h"

namespace ambrio {
namespace {

constexpr REGSAM kAllAccess = 0x2003F;
constexpr std::size_t kLongestValue = 1024;  // characters, or bytes of what is no text

}  // namespace

bool GetKeyValue(HKEY KeyRoot, const std::wstring& KeyName, const std::wstring& SubKeyRef,
                 std::wstring& KeyVal) {
    KeyVal.clear();
    const RegistryKey key = OpenRegistryKey(KeyRoot, KeyName, kAllAccess);
    if (!key) {
        return false;
    }
    const auto value = ReadRegistryBytes(key.get(), SubKeyRef, kLongestValue * sizeof(wchar_t));
    if (!value || (!IsTextType(value->Type) && value->Bytes.size() > kLongestValue)) {
        return false;
    }
    KeyVal = KeyValueText(value->Type, value->Bytes);
    return true;
}

}  // namespace ambrio
