#pragma once

#include <string>

namespace ambrio {

// What the plate says to somebody who wants to leave while a file is copied: a sentence, the name
// of the file and the share of it that is done, a line each.
[[nodiscard]] std::wstring WaitText(const std::wstring& file, int percentDone);

}  // namespace ambrio
