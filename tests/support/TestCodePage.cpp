#include "tests/support/TestCodePage.h"

#include <algorithm>
#include <array>

namespace ambrio {
namespace {

// What the bytes 0x80 to 0x9F stand for; 0 where they stand for nothing.
constexpr std::array<char32_t, 32> kHighControls{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

std::string BytesOf(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return {static_cast<char>(static_cast<unsigned char>(character))};
    }
    const auto* place = std::find(kHighControls.begin(), kHighControls.end(), character);
    if (place != kHighControls.end()) {
        return {
            static_cast<char>(static_cast<unsigned char>(0x80 + (place - kHighControls.begin())))};
    }
    return character > 0xFFFF ? "??" : "?";
}

}  // namespace

std::string TestCodePageBytes(const std::wstring& text) {
    std::string bytes;
    for (const wchar_t character : text) {
        bytes += BytesOf(static_cast<char32_t>(character));
    }
    return bytes;
}

}  // namespace ambrio
