#pragma once

#include <string>

namespace ambrio {

// A text of the program's string table; empty when there is none of that id.
[[nodiscard]] std::wstring ResourceText(unsigned id);

}  // namespace ambrio
