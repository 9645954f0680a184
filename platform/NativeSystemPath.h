#pragma once

#include <string>

namespace ambrio {

// Where a 32-bit program finds on a 64-bit system what the user calls by this full path, with or
// without the prefix "\\?\": in place of "System32" in the Windows folder such a program is shown
// another folder, and the real one under the name "Sysnative". A path that leads elsewhere comes
// back as it is. `windowsFolder` has no separator at its end; an empty one changes nothing.
[[nodiscard]] std::wstring NativeSystemPath(std::wstring path, const std::wstring& windowsFolder);

}  // namespace ambrio
