#pragma once

#include <cstdint>
#include <string>

namespace ambrio {

// The name under which a copy is made before it is renamed: "~ambrio-", sixteen hexadecimal digits
// of a random number, "-", eight for the process, ".tmp". Nobody can foresee it, so nobody can have
// put anything there, and two programs never write into each other's temporary.
[[nodiscard]] std::wstring TemporaryName(std::uint64_t randomNumber, std::uint32_t processId);

// True for a name that TemporaryName can have made. Such a file in a destination folder is the
// leftover of a killed run.
[[nodiscard]] bool IsTemporaryName(const std::wstring& name);

}  // namespace ambrio
