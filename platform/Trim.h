#pragma once

#include <string>

namespace ambrio {

// The text without blanks (U+0020 and nothing else) at its ends.
[[nodiscard]] std::wstring Trim(const std::wstring& text);

}  // namespace ambrio
