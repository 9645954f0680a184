#pragma once

#include <cstdint>

namespace ambrio {

// A number that nobody can foresee, from the system. Throws RuntimeError when the system has none.
[[nodiscard]] std::uint64_t RandomNumber();

}  // namespace ambrio
