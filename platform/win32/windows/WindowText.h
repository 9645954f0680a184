#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The text of any window or control.
[[nodiscard]] std::wstring WindowText(HWND window);

// The text of an entry of a list box, of the list of a combo box; empty when there is no such
// entry.
[[nodiscard]] std::wstring ListEntryText(HWND listBox, int entry);
[[nodiscard]] std::wstring ComboEntryText(HWND comboBox, int entry);

}  // namespace ambrio
