#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Opens the address in the program that belongs to ".htm" files. False after a message box over
// `owner` that says what went wrong.
bool OpenURL(const std::wstring& url, HWND owner);

// The full path of the program that belongs to an extension (without its dot); empty when there is
// none. To ask, it makes a file "~temp." of that extension in the current directory and removes it
// again; where that cannot be made, there is no program either.
[[nodiscard]] std::wstring GetBrowserPath(const std::wstring& ext);

}  // namespace ambrio
