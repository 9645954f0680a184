#pragma once

#include <string>

#include "saver/panel/PanelFont.h"

namespace ambrio {

// A line of text where it stands on the panel, in pixels of the panel's picture.
struct PanelTextLine {
    std::wstring Text;
    const PanelFont* Font = nullptr;  // not owned
    int Left = 0;
    int Top = 0;
    int Width = 0;
};

// How far a letter can hang over the room that it has, in pixels.
[[nodiscard]] LONG OverhangOf(const PanelFont& font);

// What the letters of a line can reach, which is more than the room that they have.
[[nodiscard]] RECT ReachOf(const PanelTextLine& line);

// From where on a line looks otherwise than the one that it replaces; its whole reach where the
// letters of either do not simply stand beside each other.
[[nodiscard]] LONG FirstDifference(const PanelTextLine& shown, const PanelTextLine& line);

// Writes what can be seen of a line in `room`, in the colours of the device context, for which the
// line's font is selected.
void WriteLine(HDC dc, const PanelTextLine& line, const RECT& room);

}  // namespace ambrio
