#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Reads a registry value of at most 1024 characters as text, see KeyValueText. The key is opened
// with all rights, so one that the user may only read counts as missing, as do longer values. False
// when it cannot be read; `KeyVal` is then empty.
bool GetKeyValue(HKEY KeyRoot, const std::wstring& KeyName, const std::wstring& SubKeyRef,
                 std::wstring& KeyVal);

}  // namespace ambrio
