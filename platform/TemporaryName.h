#pragma once

#include <cstdint>
#include <string>

namespace ambrio {

// The name under which a copy is made before it is renamed: "~ambrio-", sixteen hexadecimal digits
// that stand for the destination's folded name, "-", eight for the process, ".tmp". Two programs
// that copy the same file at once thus never write into each other's temporary.
[[nodiscard]] std::wstring TemporaryName(const std::wstring& foldedDestinationName,
                                         std::uint32_t processId);

// True for a name that TemporaryName can have made. Such a file in a destination folder is the
// leftover of a killed run.
[[nodiscard]] bool IsTemporaryName(const std::wstring& name);

}  // namespace ambrio
