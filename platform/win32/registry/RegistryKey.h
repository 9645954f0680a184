#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/RegistryValue.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

struct CloseRegistryKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};

// An open key, closed when it goes.
using RegistryKey = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseRegistryKey>;

// Opens a key below another one, or below a root, with these rights (KEY_*). Empty when there is no
// such key or the user lacks the rights.
[[nodiscard]] RegistryKey OpenRegistryKey(HKEY parent, const std::wstring& name, REGSAM rights);

// A value as the registry holds it.
struct RegistryBytes {
    RegistryType Type;  // also one that the enumeration does not name
    std::vector<std::uint8_t> Bytes;
};

// Reads a value of at most `longest` bytes; nothing when there is none or it is longer.
[[nodiscard]] std::optional<RegistryBytes> ReadRegistryBytes(HKEY key, const std::wstring& name,
                                                             std::size_t longest);

}  // namespace ambrio
