#pragma once

#include <string>

namespace ambrio {

// The full path under which this program reaches what the user calls by `path`: on a 64-bit system
// a 32-bit program must name the system's folder otherwise (NativeSystemPath.h). For calls to the
// system only, never to be shown.
[[nodiscard]] std::wstring WithoutRedirection(std::wstring path);

}  // namespace ambrio
