#pragma once

#include <string>

namespace ambrio {

// The letter of the drive, in upper case, with which a text begins ("F:\Data" gives 'F'); 0 when
// it begins with none.
[[nodiscard]] wchar_t DriveLetterOf(const std::wstring& text);

}  // namespace ambrio
