#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/RegistryValue.h"

namespace ambrio {

// A registry value as GetKeyValue gives it. The types of text are read as little-endian UTF-16,
// less one NUL at their end. A number gives the hexadecimal digits of its bytes from the last to
// the first, each byte without a leading zero, read as one hexadecimal number and written in
// decimal; so 0x0105 gives "21" and not "261". Other types give one character a byte, less one NUL
// at their end.
[[nodiscard]] std::wstring KeyValueText(RegistryType type, std::span<const std::uint8_t> bytes);

}  // namespace ambrio
