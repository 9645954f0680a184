#pragma once

#include <cstdint>
#include <string>

namespace ambrio {

// The switch at the start of a command line (the arguments only): its first two characters in
// upper case, whatever follows them. An empty command line is "/C".
[[nodiscard]] std::wstring SwitchOf(const std::wstring& commandLine);

// The window handle that the command line names behind its first two characters, rounded to the
// nearest whole number; no number gives 0. Throws RuntimeError Overflow beyond 32 bits.
[[nodiscard]] std::int32_t WindowHandleOf(const std::wstring& commandLine);

}  // namespace ambrio
