#include "tests/support/NameFolding.h"

#include <algorithm>
#include <array>

namespace ambrio {
namespace {

struct CaseRange {
    unsigned First;  // the first lower-case unit
    unsigned Last;
    unsigned Distance;  // from a lower-case unit down to its capital
};

constexpr std::array<CaseRange, 6> kRanges{{
    {0x61, 0x7A, 32},
    {0xE0, 0xF6, 32},
    {0xF8, 0xFE, 32},
    {0x3B1, 0x3C1, 32},
    {0x430, 0x44F, 32},
    {0x450, 0x45F, 80},
}};

// Where small letters have odd numbers and follow their capitals.
bool IsInPairedBlock(unsigned unit) {
    return (unit >= 0x100 && unit <= 0x12F) || (unit >= 0x14A && unit <= 0x177);
}

wchar_t Capital(wchar_t character) {
    const unsigned unit = static_cast<char32_t>(character);
    if (unit == 0xFF) {
        return static_cast<wchar_t>(0x178);
    }
    if (IsInPairedBlock(unit)) {
        return static_cast<wchar_t>(unit & ~1U);
    }
    const auto* range = std::find_if(kRanges.begin(), kRanges.end(), [unit](const CaseRange& r) {
        return unit >= r.First && unit <= r.Last;
    });
    return range == kRanges.end() ? character : static_cast<wchar_t>(unit - range->Distance);
}

}  // namespace

std::wstring FoldNameForTest(const std::wstring& name) {
    std::wstring folded = name;
    std::transform(folded.begin(), folded.end(), folded.begin(), Capital);
    return folded;
}

}  // namespace ambrio
