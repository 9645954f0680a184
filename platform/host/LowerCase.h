#pragma once

#include <cwctype>
#include <string>

namespace ambrio {

[[nodiscard]] inline std::wstring LowerCase(std::wstring text) {
    for (wchar_t& c : text) {
        c = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
    }
    return text;
}

}  // namespace ambrio
