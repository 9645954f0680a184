#pragma once

#include <string>

namespace ambrio {

// "True" or "False", in every locale.
[[nodiscard]] inline std::wstring BooleanText(bool value) {
    return value ? L"True" : L"False";
}

// Reads a Boolean text or a number (0 is false), as the platform's automation does it with the
// user's locale; builds that have no such platform read the en-US forms. Throws RuntimeError
// TypeMismatch for anything else, the empty text included.
[[nodiscard]] bool BooleanFromText(const std::wstring& text);

}  // namespace ambrio
