#include "platform/win32/windows/CheckListBox.h"

#include <algorithm>

#include "platform/win32/windows/CheckListAccessible.h"
#include "platform/win32/windows/GdiHandles.h"
#include "platform/win32/windows/ListDrawing.h"
#include "platform/win32/windows/WindowText.h"

namespace ambrio {
namespace {

constexpr int kMarginParts = 8;  // the margin is this part of an entry's height

}  // namespace

void CheckListBox::Attach(HWND listBox) {
    AttachTo(listBox);
    FitRows();
}

// The height that whole rows would leave over goes to the rows; what then is left is less than one
// pixel a row, and the list box does without it.
void CheckListBox::FitRows() {
    boxSize_ = FitEntryHeight(Control());
    const auto least = static_cast<LONG>(SendMessageW(Control(), LB_GETITEMHEIGHT, 0, 0));
    RECT inside = {};
    GetClientRect(Control(), &inside);
    const LONG rows = std::max<LONG>(1, inside.bottom / least);
    const LONG height = std::max(least, inside.bottom / rows);
    SendMessageW(Control(), LB_SETITEMHEIGHT, 0, height);
    entryHeight_ = height;
    RECT place = {};
    GetWindowRect(Control(), &place);
    SetWindowPos(Control(), nullptr, 0, 0, place.right - place.left,
                 place.bottom - place.top - (inside.bottom - rows * height),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CheckListBox::Add(const std::wstring& name, bool ticked) {
    const LRESULT entry =
        SendMessageW(Control(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    SendMessageW(Control(), LB_SETITEMDATA, static_cast<WPARAM>(entry), ticked ? 1 : 0);
}

void CheckListBox::Clear() {
    SendMessageW(Control(), LB_RESETCONTENT, 0, 0);
}

int CheckListBox::Count() const {
    return static_cast<int>(SendMessageW(Control(), LB_GETCOUNT, 0, 0));
}

std::wstring CheckListBox::Name(int entry) const {
    return ListEntryText(Control(), entry);
}

bool CheckListBox::IsTicked(int entry) const {
    return IsEntryTicked(Control(), entry);
}

int CheckListBox::Current() const {
    return static_cast<int>(SendMessageW(Control(), LB_GETCURSEL, 0, 0));
}

void CheckListBox::SetCurrent(int entry) {
    SendMessageW(Control(), LB_SETCURSEL, static_cast<WPARAM>(entry), 0);
}

LRESULT CheckListBox::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETOBJECT && static_cast<LONG>(lParam) == OBJID_CLIENT) {
        const LRESULT answer = AnswerAccessibility(Control(), wParam);
        return answer != 0 ? answer : PassOn(message, wParam, lParam);
    }
    if (message == WM_LBUTTONDBLCLK && (EntryAt(lParam) < 0 || BoxAt(lParam) >= 0)) {
        message = WM_LBUTTONDOWN;
    }
    // Where the click was meant to go is judged before the list box makes of it what it likes: it
    // scrolls an entry that is half seen into view.
    const int box = message == WM_LBUTTONDOWN ? BoxAt(lParam) : -1;
    const LRESULT result =
        message == WM_CHAR && wParam == L' ' ? 0 : PassOn(message, wParam, lParam);
    switch (message) {
        case WM_CHAR:
            // A blank ticks; it does not look for an entry that begins with one.
            if (wParam == L' ') {
                ToggleEntry(Control(), Current());
            }
            break;
        case WM_LBUTTONDOWN:
            ToggleEntry(Control(), box);
            break;
        case LB_SETITEMDATA: {
            RECT place;
            if (SendMessageW(Control(), LB_GETITEMRECT, wParam, reinterpret_cast<LPARAM>(&place)) !=
                LB_ERR) {
                InvalidateRect(Control(), &place, TRUE);
            }
            break;
        }
        default:
            break;
    }
    return result;
}

// The entry that lies there; -1 for none.
int CheckListBox::EntryAt(LPARAM position) const {
    const LRESULT found = SendMessageW(Control(), LB_ITEMFROMPOINT, 0, position);
    const POINT point = {static_cast<short>(LOWORD(position)),
                         static_cast<short>(HIWORD(position))};
    RECT place = {};
    const bool isEntry =
        HIWORD(found) == 0 && SendMessageW(Control(), LB_GETITEMRECT, LOWORD(found),
                                           reinterpret_cast<LPARAM>(&place)) != LB_ERR;
    return isEntry && PtInRect(&place, point) != FALSE ? LOWORD(found) : -1;
}

// The entry whose check box lies there; -1 for none.
int CheckListBox::BoxAt(LPARAM position) const {
    const int entry = EntryAt(position);
    RECT place = {};
    SendMessageW(Control(), LB_GETITEMRECT, static_cast<WPARAM>(entry),
                 reinterpret_cast<LPARAM>(&place));
    return entry >= 0 && static_cast<short>(LOWORD(position)) < BoxOf(place).right ? entry : -1;
}

RECT CheckListBox::BoxOf(const RECT& entry) const {
    const LONG height = entry.bottom - entry.top;
    const LONG left = entry.left + std::max<LONG>(2, height / kMarginParts);
    // The dialog may be on a monitor of another resolution by now.
    const LONG size = MulDiv(boxSize_, height, static_cast<int>(std::max<LONG>(entryHeight_, 1)));
    const LONG top = entry.top + (height - size) / 2;
    return {left, top, left + size, top + size};
}

void CheckListBox::Draw(const DRAWITEMSTRUCT& item) const {
    if (static_cast<int>(item.itemID) < 0) {
        return;
    }
    const RECT box = BoxOf(item.rcItem);
    RECT text = item.rcItem;
    text.left = box.right + (box.left - item.rcItem.left);
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_WINDOW));
    DrawBox(item.hDC, box, item.itemData == 1);
    DrawListText(item, text, Name(static_cast<int>(item.itemID)));
}

void CheckListBox::DrawBox(HDC dc, RECT box, bool ticked) const {
    if (!theme_.Draw(Control(), dc, box, ticked)) {
        const UINT state = DFCS_BUTTONCHECK | (ticked ? DFCS_CHECKED : 0U);
        DrawFrameControl(dc, &box, DFC_BUTTON, state);
    }
}

}  // namespace ambrio
