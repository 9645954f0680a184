// The en-US forms, for builds that have no automation.

#include "platform/BooleanText.h"

#include <regex>

#include "platform/RuntimeError.h"
#include "platform/host/LowerCase.h"

namespace ambrio {

bool BooleanFromText(const std::wstring& text) {
    const std::wstring plain = LowerCase(text);
    if (plain == L"true" || text == L"#TRUE#") {
        return true;
    }
    if (plain == L"false" || text == L"#FALSE#") {
        return false;
    }
    static const std::wregex number(LR"( *[+-]?(\d[\d,]*\.?\d*|\.\d+)(e[+-]?\d+)? *)");
    if (!std::regex_match(plain, number)) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    // Not zero when one digit of the mantissa is not zero.
    return plain.substr(0, plain.find(L'e')).find_first_of(L"123456789") != std::wstring::npos;
}

}  // namespace ambrio
