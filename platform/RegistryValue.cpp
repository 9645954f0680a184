#include "platform/RegistryValue.h"

#include <algorithm>

namespace ambrio {
namespace {

constexpr std::uint32_t kText = 1;
constexpr std::uint32_t kExpandableText = 2;
constexpr std::uint32_t kNumber = 4;
constexpr std::uint32_t kTexts = 7;

std::wstring WideText(std::span<const std::uint8_t> bytes) {
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<wchar_t>(bytes[i] | (bytes[i + 1] << 8));
    }
    return text;
}

std::wstring NumberText(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t kBytesOfNumber = 4;
    constexpr std::size_t kDigits = 3;
    std::uint32_t number = 0;
    for (std::size_t i = std::min(bytes.size(), kBytesOfNumber); i > 0; --i) {
        number = (number << 8) | bytes[i - 1];
    }
    const std::wstring digits = std::to_wstring(number);
    return std::wstring(kDigits - std::min(kDigits, digits.size()), L'0') + digits;
}

}  // namespace

std::wstring RegistryValueText(std::uint32_t type, std::span<const std::uint8_t> bytes) {
    const bool isText = type == kText || type == kExpandableText || type == kTexts;
    const std::size_t length = isText ? bytes.size() / 2 : bytes.size();
    if (length == 0 || length > kLongestRegistryValue) {
        return {};
    }
    if (type == kNumber) {
        return NumberText(bytes).substr(0, length - 1);
    }
    const std::wstring text = isText ? WideText(bytes) : std::wstring(bytes.begin(), bytes.end());
    return text.substr(0, length - 1);
}

}  // namespace ambrio
