#include "platform/KeyValueText.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "platform/DecimalText.h"

namespace ambrio {
namespace {

// Wanted: a byte below 16 loses a digit.
std::wstring NumberOfDigits(std::span<const std::uint8_t> bytes) {
    char hexadecimal[16];
    char* end = hexadecimal;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
        end = std::to_chars(end, hexadecimal + sizeof hexadecimal, *byte, 16).ptr;
    }
    std::int64_t number = 0;  // of eight digits at most
    std::from_chars(hexadecimal, end, number, 16);
    return DecimalText(static_cast<long long>(number));  // four bytes at most
}

}  // namespace

std::wstring KeyValueText(RegistryType type, std::span<const std::uint8_t> bytes) {
    if (type == RegistryType::Number) {
        constexpr std::size_t kBytesOfNumber = 4;
        std::span<const std::uint8_t> number = bytes.first(std::min(bytes.size(), kBytesOfNumber));
        // A NUL at the end goes, as it does for text; it is a digit 0 in front of the others.
        if (!number.empty() && number.back() == 0) {
            number = number.first(number.size() - 1);
        }
        return NumberOfDigits(number);
    }
    std::wstring text = RegistryCharacters(type, bytes);
    if (!text.empty() && text.back() == L'\0') {
        text.pop_back();
    }
    return text;
}

}  // namespace ambrio
