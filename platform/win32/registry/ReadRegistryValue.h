#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The text of a registry value, as RegistryValueText gives it; empty when the key or the value does
// not exist or cannot be read.
[[nodiscard]] std::wstring ReadRegistryValue(HKEY root, const std::wstring& subkey,
                                             const std::wstring& name);

}  // namespace ambrio
