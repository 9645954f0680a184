#include "config/DirectoryListBox.h"

#include <algorithm>

#include "platform/win32/windows/ListDrawing.h"

namespace ambrio {
namespace {

constexpr int kGap = 3;  // pixels around an icon

UniqueFont BoldOf(HFONT font) {
    LOGFONTW description = {};
    GetObjectW(font, sizeof(description), &description);
    description.lfWeight = FW_BOLD;
    return UniqueFont(CreateFontIndirectW(&description));
}

bool IsEnter(LPARAM message) {
    const auto* msg = reinterpret_cast<const MSG*>(message);
    return msg != nullptr && msg->message == WM_KEYDOWN && msg->wParam == VK_RETURN;
}

}  // namespace

void DirectoryListBox::Attach(HWND listBox) {
    AttachTo(listBox);
    iconSize_ = GetSystemMetrics(SM_CXSMICON);
    bold_ = BoldOf(reinterpret_cast<HFONT>(SendMessageW(listBox, WM_GETFONT, 0, 0)));
    const int boxSize = FitEntryHeight(listBox);
    const LRESULT height = SendMessageW(listBox, LB_GETITEMHEIGHT, 0, 0);
    SendMessageW(listBox, LB_SETITEMHEIGHT, 0,
                 std::max<LRESULT>(height, std::max(boxSize, iconSize_) + 2));
}

void DirectoryListBox::Show(const std::vector<DirectoryRow>& rows, std::size_t openRow) {
    SendMessageW(Control(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(Control(), LB_RESETCONTENT, 0, 0);
    for (const DirectoryRow& row : rows) {
        const LRESULT entry =
            SendMessageW(Control(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.Name.c_str()));
        SendMessageW(Control(), LB_SETITEMDATA, static_cast<WPARAM>(entry), row.Depth);
    }
    openRow_ = static_cast<LRESULT>(openRow);
    SetScrollWidth(rows);
    SendMessageW(Control(), WM_SETREDRAW, TRUE, 0);
    SendMessageW(Control(), LB_SETTOPINDEX, openRow > 0 ? openRow - 1 : 0, 0);
    SendMessageW(Control(), LB_SETCURSEL, openRow, 0);
    InvalidateRect(Control(), nullptr, TRUE);
}

// Deep paths and long names are reached by scrolling; nothing is cut.
void DirectoryListBox::SetScrollWidth(const std::vector<DirectoryRow>& rows) {
    const WindowDC dc(Control());
    LONG width = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const DirectoryRow& row = rows[i];
        const SelectedObject font(dc.get(), FontOf(i));
        SIZE extent = {};
        GetTextExtentPoint32W(dc.get(), row.Name.c_str(), static_cast<int>(row.Name.size()),
                              &extent);
        width = std::max<LONG>(width, TextLeft(row.Depth) + extent.cx + 2 * kGap);
    }
    SendMessageW(Control(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width), 0);
}

HFONT DirectoryListBox::FontOf(std::size_t row) const {
    const bool isOpen = static_cast<LRESULT>(row) == openRow_ && bold_ != nullptr;
    return isOpen ? bold_.get()
                  : reinterpret_cast<HFONT>(SendMessageW(Control(), WM_GETFONT, 0, 0));
}

int DirectoryListBox::TextLeft(int depth) const {
    return kGap + depth * (iconSize_ / 2 + kGap) + iconSize_ + kGap;
}

LRESULT DirectoryListBox::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETDLGCODE && IsEnter(lParam) && TakesEnter()) {
        return PassOn(message, wParam, lParam) | DLGC_WANTMESSAGE;
    }
    if (message == WM_KEYDOWN && wParam == VK_RETURN) {
        const auto id = static_cast<WORD>(GetDlgCtrlID(Control()));
        SendMessageW(GetParent(Control()), WM_COMMAND, MAKEWPARAM(id, LBN_DBLCLK),
                     reinterpret_cast<LPARAM>(Control()));
        return 0;
    }
    return PassOn(message, wParam, lParam);
}

bool DirectoryListBox::TakesEnter() const {
    const LRESULT current = SendMessageW(Control(), LB_GETCURSEL, 0, 0);
    return current != LB_ERR && current != openRow_;
}

void DirectoryListBox::Draw(const DRAWITEMSTRUCT& item,
                            const std::vector<DirectoryRow>& rows) const {
    if (item.itemID >= rows.size()) {
        return;
    }
    const DirectoryRow& row = rows[item.itemID];
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_WINDOW));
    RECT text = item.rcItem;
    text.left += TextLeft(row.Depth);
    const LONG iconLeft = text.left - iconSize_ - kGap;
    const LONG iconTop = item.rcItem.top + (item.rcItem.bottom - item.rcItem.top - iconSize_) / 2;
    DrawIconEx(item.hDC, iconLeft, iconTop, row.IsOpen ? icons_.Open() : icons_.Closed(), iconSize_,
               iconSize_, 0, nullptr, DI_NORMAL);
    const SelectedObject font(item.hDC, FontOf(item.itemID));
    DrawListText(item, text, row.Name);
}

}  // namespace ambrio
