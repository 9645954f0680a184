#pragma once

#include <string>

namespace ambrio {

// The full path of what a text names, seen from the current directory; a drive without a path
// ("D:") gives the current directory on that drive. Nothing is looked up. Empty when the text can
// be no path; the last error code then says why.
[[nodiscard]] std::wstring FullPath(const std::wstring& text);

}  // namespace ambrio
