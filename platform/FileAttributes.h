#pragma once

#include <cstdint>

namespace ambrio {

// The attribute bits of a file or folder, with the file system's own values. A constant set and
// no enum, because bits that nobody here knows must travel unchanged.
using FileAttributes = std::uint32_t;

inline constexpr FileAttributes kAttributeReadOnly = 0x1;
inline constexpr FileAttributes kAttributeHidden = 0x2;
inline constexpr FileAttributes kAttributeSystem = 0x4;
inline constexpr FileAttributes kAttributeDirectory = 0x10;
inline constexpr FileAttributes kAttributeArchive = 0x20;
inline constexpr FileAttributes kAttributeLink = 0x400;  // any kind of reparse point

}  // namespace ambrio
