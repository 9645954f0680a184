#include "platform/win32/windows/ListDrawing.h"

#include <algorithm>

#include "platform/win32/windows/GdiHandles.h"

namespace ambrio {

int FitEntryHeight(HWND listBox) {
    constexpr int kSpace = 2;  // pixels above and below
    const WindowDC dc(listBox);
    const SelectedObject font(dc.get(),
                              reinterpret_cast<HFONT>(SendMessageW(listBox, WM_GETFONT, 0, 0)));
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc.get(), &metrics);
    // The size of a check box at 96 dpi, in the screen's proportion.
    const int boxSize = MulDiv(13, GetDeviceCaps(dc.get(), LOGPIXELSY), USER_DEFAULT_SCREEN_DPI);
    const int height = std::max<int>(metrics.tmHeight, boxSize) + 2 * kSpace;
    SendMessageW(listBox, LB_SETITEMHEIGHT, 0, height);
    return boxSize;
}

void DrawListText(const DRAWITEMSTRUCT& item, const RECT& place, const std::wstring& text) {
    constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    const bool isSelected = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &place, GetSysColorBrush(isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    RECT inside = place;
    inside.left += 2;
    DrawTextW(item.hDC, text.c_str(), static_cast<int>(text.size()), &inside, kFormat);
    if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0) {
        DrawFocusRect(item.hDC, &place);
    }
}

}  // namespace ambrio
