#include "config/DirectoryListBox.h"

#include <algorithm>

#include "platform/win32/GdiHandles.h"
#include "platform/win32/ListDrawing.h"

namespace ambrio {
namespace {

constexpr int kGap = 3;  // pixels around an icon

bool IsEnter(LPARAM message) {
    const auto* msg = reinterpret_cast<const MSG*>(message);
    return msg != nullptr && msg->message == WM_KEYDOWN && msg->wParam == VK_RETURN;
}

}  // namespace

DirectoryListBox::~DirectoryListBox() {
    if (listBox_ != nullptr) {
        RemoveWindowSubclass(listBox_, Procedure, 0);
    }
}

void DirectoryListBox::Attach(HWND listBox) {
    listBox_ = listBox;
    iconSize_ = GetSystemMetrics(SM_CXSMICON);
    const int boxSize = FitEntryHeight(listBox);
    const LRESULT height = SendMessageW(listBox, LB_GETITEMHEIGHT, 0, 0);
    SendMessageW(listBox, LB_SETITEMHEIGHT, 0,
                 std::max<LRESULT>(height, std::max(boxSize, iconSize_) + 2));
    SetWindowSubclass(listBox, Procedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

void DirectoryListBox::Show(const std::vector<DirectoryRow>& rows, std::size_t openRow) {
    SendMessageW(listBox_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(listBox_, LB_RESETCONTENT, 0, 0);
    for (const DirectoryRow& row : rows) {
        const LRESULT entry =
            SendMessageW(listBox_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.Name.c_str()));
        SendMessageW(listBox_, LB_SETITEMDATA, static_cast<WPARAM>(entry), row.Depth);
    }
    SetScrollWidth(rows);
    openRow_ = static_cast<LRESULT>(openRow);
    SendMessageW(listBox_, WM_SETREDRAW, TRUE, 0);
    SendMessageW(listBox_, LB_SETTOPINDEX, openRow > 0 ? openRow - 1 : 0, 0);
    SendMessageW(listBox_, LB_SETCURSEL, openRow, 0);
    InvalidateRect(listBox_, nullptr, TRUE);
}

// Deep paths and long names are reached by scrolling; nothing is cut.
void DirectoryListBox::SetScrollWidth(const std::vector<DirectoryRow>& rows) {
    const HDC dc = GetDC(listBox_);
    LONG width = 0;
    {
        const SelectedObject font(
            dc, reinterpret_cast<HFONT>(SendMessageW(listBox_, WM_GETFONT, 0, 0)));
        for (const DirectoryRow& row : rows) {
            SIZE extent = {};
            GetTextExtentPoint32W(dc, row.Name.c_str(), static_cast<int>(row.Name.size()), &extent);
            width = std::max<LONG>(width, TextLeft(row.Depth) + extent.cx + 2 * kGap);
        }
    }
    ReleaseDC(listBox_, dc);
    SendMessageW(listBox_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width), 0);
}

int DirectoryListBox::TextLeft(int depth) const {
    return kGap + depth * (iconSize_ / 2 + kGap) + iconSize_ + kGap;
}

LRESULT CALLBACK DirectoryListBox::Procedure(HWND handle, UINT message, WPARAM wParam,
                                             LPARAM lParam, UINT_PTR id, DWORD_PTR data) {
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(handle, Procedure, id);
        reinterpret_cast<DirectoryListBox*>(data)->listBox_ = nullptr;
        return DefSubclassProc(handle, message, wParam, lParam);
    }
    return reinterpret_cast<DirectoryListBox*>(data)->Receive(message, wParam, lParam);
}

LRESULT DirectoryListBox::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETDLGCODE && IsEnter(lParam) && TakesEnter()) {
        return DefSubclassProc(listBox_, message, wParam, lParam) | DLGC_WANTMESSAGE;
    }
    if (message == WM_KEYDOWN && wParam == VK_RETURN) {
        const auto id = static_cast<WORD>(GetDlgCtrlID(listBox_));
        SendMessageW(GetParent(listBox_), WM_COMMAND, MAKEWPARAM(id, LBN_DBLCLK),
                     reinterpret_cast<LPARAM>(listBox_));
        return 0;
    }
    return DefSubclassProc(listBox_, message, wParam, lParam);
}

bool DirectoryListBox::TakesEnter() const {
    const LRESULT current = SendMessageW(listBox_, LB_GETCURSEL, 0, 0);
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
    DrawListText(item, text, row.Name);
}

}  // namespace ambrio
