#include "platform/PlainName.h"

#include <algorithm>

namespace ambrio {

bool IsPlainName(const std::wstring& name) {
    const auto isForbidden = [](wchar_t c) { return c == L'\\' || c == L'/' || c < L' '; };
    return !name.empty() && name != L"." && name != L".." &&
           std::none_of(name.begin(), name.end(), isForbidden);
}

}  // namespace ambrio
