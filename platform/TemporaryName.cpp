#include "platform/TemporaryName.h"

#include <algorithm>
#include <string_view>

namespace ambrio {
namespace {

constexpr std::wstring_view kStart = L"~ambrio-";
constexpr std::wstring_view kSuffix = L".tmp";
constexpr std::size_t kRandomDigits = 16;
constexpr std::size_t kProcessDigits = 8;
constexpr std::wstring_view kDigits = L"0123456789abcdef";

std::wstring Hexadecimal(std::uint64_t value, std::size_t digits) {
    std::wstring text(digits, L'0');
    for (std::size_t i = digits; i > 0; --i, value >>= 4U) {
        text[i - 1] = kDigits[static_cast<std::size_t>(value & 0xFU)];
    }
    return text;
}

bool AllDigits(std::wstring_view text) {
    return text.find_first_not_of(kDigits) == std::wstring_view::npos;
}

}  // namespace

std::wstring TemporaryName(std::uint64_t randomNumber, std::uint32_t processId) {
    return std::wstring(kStart) + Hexadecimal(randomNumber, kRandomDigits) + L'-' +
           Hexadecimal(processId, kProcessDigits) + std::wstring(kSuffix);
}

bool IsTemporaryName(const std::wstring& name) {
    std::wstring_view rest = name;
    if (rest.size() != kStart.size() + kRandomDigits + 1 + kProcessDigits + kSuffix.size() ||
        !rest.starts_with(kStart) || !rest.ends_with(kSuffix)) {
        return false;
    }
    rest.remove_prefix(kStart.size());
    return AllDigits(rest.substr(0, kRandomDigits)) && rest[kRandomDigits] == L'-' &&
           AllDigits(rest.substr(kRandomDigits + 1, kProcessDigits));
}

}  // namespace ambrio
