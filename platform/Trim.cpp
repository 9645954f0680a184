#include "platform/Trim.h"

namespace ambrio {

std::wstring Trim(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(L' ');
    return first == std::wstring::npos
               ? std::wstring()
               : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

}  // namespace ambrio
