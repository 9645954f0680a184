#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// What the conversions of the system's automation have in common.

// Throws the RuntimeError of a conversion that failed: Overflow, OutOfMemory or else TypeMismatch.
void RequireConverted(HRESULT result);

// A text as the conversions take it. They do not change it; some declarations miss the const.
[[nodiscard]] OLECHAR* AutomationText(const std::wstring& text);

}  // namespace ambrio
