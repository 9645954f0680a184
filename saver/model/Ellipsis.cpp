#include "saver/model/Ellipsis.h"

#include <algorithm>

namespace ambrio {
namespace {

// More than any label can show; measuring a text costs by its length.
constexpr std::size_t kLongest = 512;

bool IsSurrogate(wchar_t c, unsigned first) {
    return (static_cast<unsigned>(c) & 0xFC00U) == first;
}

// Writes the two ends of the text, `kept` code units in all and no half characters, around an
// ellipsis. What is written to keeps its room from one try to the next.
void JoinEnds(const std::wstring& text, std::size_t kept, std::wstring& joined) {
    std::size_t head = kept - kept / 2;
    std::size_t tail = kept / 2;
    if (head > 0 && IsSurrogate(text[head - 1], 0xD800U)) {
        --head;
    }
    if (tail > 0 && IsSurrogate(text[text.size() - tail], 0xDC00U)) {
        --tail;
    }
    joined.assign(text, 0, head);
    joined += kEllipsis;
    joined.append(text, text.size() - tail);
}

}  // namespace

std::wstring Shortened(const std::wstring& text, const TextFits& fits) {
    if (text.size() <= kLongest && fits(text)) {
        return text;
    }
    std::size_t fitting = 0;
    std::size_t tooLong = std::min(text.size(), kLongest);
    std::wstring shortened;
    shortened.reserve(tooLong + 1);
    while (fitting + 1 < tooLong) {
        const std::size_t middle = (fitting + tooLong) / 2;
        JoinEnds(text, middle, shortened);
        (fits(shortened) ? fitting : tooLong) = middle;
    }
    JoinEnds(text, fitting, shortened);
    return shortened;
}

}  // namespace ambrio
