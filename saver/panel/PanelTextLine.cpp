#include "saver/panel/PanelTextLine.h"

#include <algorithm>

namespace ambrio {
namespace {

constexpr int kOverhangs = 4;  // how many times a glyph's part beside its room goes into a line

bool IsPlain(const PanelTextLine& line) {
    return std::all_of(line.Text.begin(), line.Text.end(),
                       [&line](wchar_t unit) { return line.Font->PlainWidth(unit).has_value(); });
}

}  // namespace

LONG OverhangOf(const PanelFont& font) {
    return font.LineHeight() / kOverhangs;
}

RECT ReachOf(const PanelTextLine& line) {
    const LONG overhang = OverhangOf(*line.Font);
    return {line.Left - overhang, line.Top, line.Left + line.Width + overhang,
            line.Top + line.Font->LineHeight()};
}

LONG FirstDifference(const PanelTextLine& shown, const PanelTextLine& line) {
    LONG from = std::min(shown.Left, line.Left);
    if (shown.Font == line.Font && shown.Left == line.Left && IsPlain(shown) && IsPlain(line)) {
        const auto end =
            std::mismatch(shown.Text.begin(), shown.Text.end(), line.Text.begin(), line.Text.end())
                .second;
        from += line.Font->WidthOf({line.Text.begin(), end});
    }
    return from - OverhangOf(*line.Font);
}

// Letters that end before the room are kept from the system, which takes its time for each.
void WriteLine(HDC dc, const PanelTextLine& line, const RECT& room) {
    const wchar_t* text = line.Text.c_str();
    LONG left = line.Left;
    if (left < room.left && IsPlain(line)) {
        for (; *text != L'\0'; ++text) {
            const LONG end = left + *line.Font->PlainWidth(*text);
            if (end + OverhangOf(*line.Font) > room.left) {
                break;
            }
            left = end;
        }
    }
    const auto written = static_cast<std::size_t>(text - line.Text.c_str());
    ExtTextOutW(dc, left, line.Top, ETO_CLIPPED, &room, text,
                static_cast<UINT>(line.Text.size() - written), nullptr);
}

}  // namespace ambrio
