#include "platform/Val.h"

#include <cstdlib>
#include <string>

namespace ambrio {
namespace {

// The leading run of characters that can belong to a number, as plain ASCII.
std::string NumberCharacters(const std::wstring& text, std::size_t from) {
    std::string characters;
    for (std::size_t i = from; i < text.size(); ++i) {
        const wchar_t c = text[i];
        const bool exponentSign = !characters.empty() && characters.back() == 'e';
        if ((c >= L'0' && c <= L'9') || c == L'.' || (c == L'-' && (i == from || exponentSign))) {
            characters += static_cast<char>(c);
        } else if (c == L'+' && (i == from || exponentSign)) {
            if (exponentSign) {
                characters += '+';
            }
        } else if ((c == L'e' || c == L'E' || c == L'd' || c == L'D') && !characters.empty()) {
            characters += 'e';
        } else {
            break;
        }
    }
    return characters;
}

}  // namespace

double Val(const std::wstring& text) {
    const std::size_t start = text.find_first_not_of(L" \t\r\n");
    if (start == std::wstring::npos) {
        return 0;
    }
    // The runtime's own reading is not for other locales, which the program never sets. It tells
    // too large from too small and stops by itself where the number ends.
    return std::atof(NumberCharacters(text, start).c_str());
}

}  // namespace ambrio
