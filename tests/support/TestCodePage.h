#pragma once

#include <string>

namespace ambrio {

// The text in the Western European code page; what it lacks becomes "?", one for each 16-bit unit
// as the platform does it. The stand-in for the system's code page on every build machine.
[[nodiscard]] std::string TestCodePageBytes(const std::wstring& text);

}  // namespace ambrio
