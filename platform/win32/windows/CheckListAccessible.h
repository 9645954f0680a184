#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The answer of a list box with check boxes to WM_GETOBJECT, which screen readers and other
// programs send: an object by which each entry is a check box with its name, its tick and its
// place, and can be ticked. What the entries have no part in is left to the system's own object. 0
// where the system knows nothing of that. Needs a ComApartment on the thread.
[[nodiscard]] LRESULT AnswerAccessibility(HWND listBox, WPARAM wParam);

// Whether an entry has its tick, which is its item data: 1 or 0.
[[nodiscard]] bool IsEntryTicked(HWND listBox, int entry);
// Turns the tick of an entry, if there is such a one, and says so to those who listen.
void ToggleEntry(HWND listBox, int entry);

}  // namespace ambrio
