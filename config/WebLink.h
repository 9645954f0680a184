#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Opens the address in the program that belongs to ".htm" files. False after a message box over
// `owner` that says what went wrong.
bool OpenURL(const std::wstring& url, HWND owner);

}  // namespace ambrio
