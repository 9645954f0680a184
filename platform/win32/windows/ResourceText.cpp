#include "platform/win32/windows/ResourceText.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

std::wstring ResourceText(unsigned id) {
    // With a size of 0 the call gives the place of the text itself, which has no end mark.
    const wchar_t* text = nullptr;
    const int length =
        LoadStringW(GetModuleHandleW(nullptr), id, reinterpret_cast<wchar_t*>(&text), 0);
    return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring();
}

}  // namespace ambrio
