#include "platform/DriveLetter.h"

#include "platform/AsciiCase.h"

namespace ambrio {

wchar_t DriveLetterOf(const std::wstring& text) {
    if (text.size() < 2 || text[1] != L':') {
        return 0;
    }
    const wchar_t letter = AsciiUpperCase(text[0]);
    return letter >= L'A' && letter <= L'Z' ? letter : L'\0';
}

}  // namespace ambrio
