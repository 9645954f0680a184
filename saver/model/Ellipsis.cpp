#include "saver/model/Ellipsis.h"

#include <algorithm>

namespace ambrio {
namespace {

// More than any label can show; measuring a text costs by its length.
constexpr std::size_t kLongest = 512;

bool IsSurrogate(wchar_t c, unsigned first) {
    return (static_cast<unsigned>(c) & 0xFC00U) == first;
}

// The two ends of the text, `kept` code units in all and no half characters, around an ellipsis.
std::wstring Ends(const std::wstring& text, std::size_t kept) {
    std::size_t head = kept - kept / 2;
    std::size_t tail = kept / 2;
    if (head > 0 && IsSurrogate(text[head - 1], 0xD800U)) {
        --head;
    }
    if (tail > 0 && IsSurrogate(text[text.size() - tail], 0xDC00U)) {
        --tail;
    }
    return text.substr(0, head) + kEllipsis + text.substr(text.size() - tail);
}

}  // namespace

std::wstring Shortened(const std::wstring& text, const TextFits& fits) {
    if (text.size() <= kLongest && fits(text)) {
        return text;
    }
    std::size_t fitting = 0;
    std::size_t tooLong = std::min(text.size(), kLongest);
    while (fitting + 1 < tooLong) {
        const std::size_t middle = (fitting + tooLong) / 2;
        (fits(Ends(text, middle)) ? fitting : tooLong) = middle;
    }
    return Ends(text, fitting);
}

}  // namespace ambrio
