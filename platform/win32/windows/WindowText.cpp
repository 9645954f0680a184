#include "platform/win32/windows/WindowText.h"

namespace ambrio {
namespace {

std::wstring EntryText(HWND list, UINT lengthMessage, UINT textMessage, int entry) {
    const LRESULT length = SendMessageW(list, lengthMessage, static_cast<WPARAM>(entry), 0);
    static_assert(LB_ERR == CB_ERR);
    if (length == LB_ERR) {
        return {};
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessageW(list, textMessage, static_cast<WPARAM>(entry),
                 reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

}  // namespace

std::wstring WindowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::wstring ListEntryText(HWND listBox, int entry) {
    return EntryText(listBox, LB_GETTEXTLEN, LB_GETTEXT, entry);
}

std::wstring ComboEntryText(HWND comboBox, int entry) {
    return EntryText(comboBox, CB_GETLBTEXTLEN, CB_GETLBTEXT, entry);
}

}  // namespace ambrio
