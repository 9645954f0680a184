#include "platform/RegistryValue.h"

#include <algorithm>

#include "platform/DecimalText.h"

namespace ambrio {
namespace {

std::wstring NumberText(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t kBytesOfNumber = 4;
    constexpr std::size_t kDigits = 3;
    std::uint32_t number = 0;
    for (std::size_t i = std::min(bytes.size(), kBytesOfNumber); i > 0; --i) {
        number = (number << 8) | bytes[i - 1];
    }
    const std::wstring digits = DecimalText(number);
    return std::wstring(kDigits - std::min(kDigits, digits.size()), L'0') + digits;
}

}  // namespace

bool IsTextType(RegistryType type) {
    return type == RegistryType::Text || type == RegistryType::ExpandableText ||
           type == RegistryType::Texts;
}

std::wstring RegistryCharacters(RegistryType type, std::span<const std::uint8_t> bytes) {
    if (!IsTextType(type)) {
        return {bytes.begin(), bytes.end()};
    }
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<wchar_t>(bytes[i] | (bytes[i + 1] << 8));
    }
    return text;
}

std::wstring RegistryValueText(RegistryType type, std::span<const std::uint8_t> bytes) {
    const std::size_t length = IsTextType(type) ? bytes.size() / 2 : bytes.size();
    if (length == 0 || length > kLongestRegistryValue) {
        return {};
    }
    const std::wstring text =
        type == RegistryType::Number ? NumberText(bytes) : RegistryCharacters(type, bytes);
    return text.substr(0, length - 1);
}

}  // namespace ambrio
