#include "tests/fuzz/FuzzInput.h"

#include <stdexcept>

namespace ambrio {

std::uint8_t FuzzInput::Byte() {
    if (bytes_.empty()) {
        return 0;
    }
    const std::uint8_t byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte;
}

std::uint64_t FuzzInput::Number() {
    std::uint64_t number = 0;
    for (unsigned i = 0; i < 8; ++i) {
        number = (number << 8U) | Byte();
    }
    return number;
}

std::wstring FuzzInput::Text(std::size_t longest) {
    std::wstring text;
    while (text.size() < longest && !bytes_.empty()) {
        const unsigned first = Byte();
        if (first == 0) {
            break;
        }
        text += static_cast<wchar_t>(first < 0x80U ? first : ((first & 0x7FU) << 9U) | Byte());
    }
    return text;
}

std::span<const std::uint8_t> FuzzInput::Rest() {
    const std::span<const std::uint8_t> rest = bytes_;
    bytes_ = {};
    return rest;
}

void Require(bool holds, const char* what) {
    if (!holds) {
        throw std::logic_error(what);
    }
}

}  // namespace ambrio
