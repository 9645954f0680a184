#pragma once

#include <string>

namespace ambrio {

// Upper-cases a name code unit by code unit for ASCII, Latin, Greek and Cyrillic: enough of the
// platform's comparison of names for tests, the same on every build machine.
[[nodiscard]] std::wstring FoldNameForTest(const std::wstring& name);

}  // namespace ambrio
