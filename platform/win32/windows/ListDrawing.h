#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// What owner-drawn lists have in common.

// Makes the entries high enough for a line of the list's font and for a check box or small icon
// beside it; returns the size of the latter two in pixels.
int FitEntryHeight(HWND listBox);

// Draws an entry's text in its place, with an ellipsis where it is too long, in the colours of its
// state and with the focus rectangle.
void DrawListText(const DRAWITEMSTRUCT& item, const RECT& place, const std::wstring& text);

}  // namespace ambrio
