#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace ambrio {

// The longest value that ReadRegistryValue reads, its NUL included: characters of a text, bytes of
// anything else.
inline constexpr std::size_t kLongestRegistryValue = 255;

// The text of a registry value of this type (the registry's own number) and these bytes: its last
// character, which is the NUL of a text, is cut off whatever it is. A number of 32 bits has at
// least three digits and is cut to as many characters as it has bytes, less one. This is wanted: 1
// reads as "001" and 1200 as "120". A value that is too long or has no bytes gives the empty text.
[[nodiscard]] std::wstring RegistryValueText(std::uint32_t type,
                                             std::span<const std::uint8_t> bytes);

}  // namespace ambrio
