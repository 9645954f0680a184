#pragma once

#include <string>

namespace ambrio {

// The number at the start of a text: leading blanks are skipped, reading stops at the first
// character that cannot belong to a number, no number gives 0. The point is the decimal separator
// in every locale. A number beyond the range of a double gives infinity, one too small for it 0.
[[nodiscard]] double Val(const std::wstring& text);

}  // namespace ambrio
