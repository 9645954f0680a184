#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ambrio::e2e {

// For messages of tests.
[[nodiscard]] std::string Utf8(std::wstring_view text);

// Reads bytes of the system's code page.
[[nodiscard]] std::wstring FromSystemCodePage(std::string_view bytes);

// For comparing texts of boxes whose line ends may be either of LF and CR LF.
[[nodiscard]] std::wstring WithoutReturns(std::wstring text);

// Cuts at each CR LF; text behind the last one counts as a line only when it is not empty.
[[nodiscard]] std::vector<std::wstring> SplitLines(std::wstring_view text);

}  // namespace ambrio::e2e
