#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The text that a call of the system writes into a buffer. Call: takes buffer and size in
// characters, returns the length of the text or, given too little room, the room that it needs; 0
// for a failure, which gives the empty text and leaves the last error code alone.
template <typename Call>
[[nodiscard]] std::wstring TextOfCall(const Call& call) {
    std::wstring text(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = call(text.data(), static_cast<DWORD>(text.size()))) >= text.size()) {
        text.resize(length + 1);
    }
    text.resize(length);
    return text;
}

}  // namespace ambrio
