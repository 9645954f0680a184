#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace ambrio {

// Makes values of a fuzzer's bytes. When they are used up, everything is zero and empty.
class FuzzInput {
  public:
    explicit FuzzInput(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    [[nodiscard]] bool IsUsedUp() const { return bytes_.empty(); }
    std::uint8_t Byte();
    bool Bool() { return (Byte() & 1U) != 0; }
    // From 0 to limit - 1; `limit` is 256 at most.
    std::size_t Below(std::size_t limit) { return Byte() % limit; }
    std::uint64_t Number();
    // Of any 16-bit units, up to `longest` of them. A byte below 0x80 is a character by itself;
    // text ends with a NUL byte.
    std::wstring Text(std::size_t longest);
    // What is left.
    std::span<const std::uint8_t> Rest();

  private:
    std::span<const std::uint8_t> bytes_;
};

// Ends a fuzzer with a finding, named `what`, when it does not hold. Throws std::logic_error.
void Require(bool holds, const char* what);

}  // namespace ambrio
