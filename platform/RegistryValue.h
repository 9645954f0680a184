#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace ambrio {

// The types of registry values, with the registry's own numbers.
enum class RegistryType : std::uint32_t { Text = 1, ExpandableText = 2, Number = 4, Texts = 7 };

[[nodiscard]] bool IsTextType(RegistryType type);

// The characters of a registry value, NULs included: its bytes are little-endian UTF-16 where the
// type is one of text, and one character each in all other types.
[[nodiscard]] std::wstring RegistryCharacters(RegistryType type,
                                              std::span<const std::uint8_t> bytes);

// The longest value that ReadRegistryValue reads, its NUL included: characters of a text, bytes of
// anything else.
inline constexpr std::size_t kLongestRegistryValue = 255;

// A registry value as ReadRegistryValue gives it: its last character, which is the NUL of a text,
// is cut off whatever it is. A number of 32 bits has at least three digits and is cut to as many
// characters as it has bytes, less one. This is wanted: 1 reads as "001" and 1200 as "120". A value
// that is too long or has no bytes gives the empty text.
[[nodiscard]] std::wstring RegistryValueText(RegistryType type,
                                             std::span<const std::uint8_t> bytes);

}  // namespace ambrio
