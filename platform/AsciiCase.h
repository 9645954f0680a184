#pragma once

namespace ambrio {

// The capital of a letter of the English alphabet; any other character as it is.
[[nodiscard]] constexpr wchar_t AsciiUpperCase(wchar_t c) {
    return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}

}  // namespace ambrio
