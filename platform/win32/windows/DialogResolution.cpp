#include "platform/win32/windows/DialogResolution.h"

#include <utility>
#include <vector>

#include "platform/win32/system/SystemLibrary.h"
#include "platform/win32/windows/ScreenTwips.h"

namespace ambrio {
namespace {

struct Placed {
    HWND Control;
    RECT Place;
    int EntryHeight;  // of an owner-drawn list, which keeps its own; LB_ERR of all other controls
};

// A combo box counts its list as a part of it.
RECT PlaceOf(HWND dialog, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    RECT withList{};
    if (SendMessageW(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&withList)) !=
        0) {
        place = withList;
    }
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool IsOwnerDrawnList(HWND control) {
    wchar_t className[16]{};
    GetClassNameW(control, className, ARRAYSIZE(className));
    return lstrcmpiW(className, WC_LISTBOXW) == 0 &&
           (GetWindowLongW(control, GWL_STYLE) & LBS_OWNERDRAWFIXED) != 0;
}

std::vector<Placed> ControlsOf(HWND dialog) {
    std::vector<Placed> controls;
    for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        const bool isList = IsOwnerDrawnList(control);
        controls.push_back(
            {control, PlaceOf(dialog, control),
             isList ? static_cast<int>(SendMessageW(control, LB_GETITEMHEIGHT, 0, 0)) : LB_ERR});
    }
    return controls;
}

// Where the system scales dialogs by itself, it is told not to: it knows nothing of the entries of
// owner-drawn lists, and both together would be too much.
void ScaleByOurselves(HWND dialog) {
    using SetBehaviour = BOOL(WINAPI*)(HWND dialog, int mask, int values);
    constexpr int kDisableAll = 1;
    const SystemLibrary user(L"user32.dll");
    if (const auto set = user.Function<SetBehaviour>("SetDialogDpiChangeBehavior");
        set != nullptr) {
        set(dialog, kDisableAll, kDisableAll);
    }
}

}  // namespace

void DialogResolution::Attach(HWND dialog) {
    dialog_ = dialog;
    dotsPerInch_ = DotsPerInchOf(dialog);
    ScaleByOurselves(dialog);
}

int DialogResolution::Scaled(int length, int dotsPerInch) const {
    return MulDiv(length, dotsPerInch, dotsPerInch_);
}

void DialogResolution::ScaleFont(int dotsPerInch) {
    LOGFONTW design{};
    // A dialog goes on naming the font that it was made with.
    const HFONT present = font_ != nullptr
                              ? font_.get()
                              : reinterpret_cast<HFONT>(SendMessageW(dialog_, WM_GETFONT, 0, 0));
    if (GetObjectW(present, sizeof(design), &design) == 0) {
        return;
    }
    design.lfHeight = Scaled(design.lfHeight, dotsPerInch);
    design.lfWidth = 0;
    UniqueFont font(CreateFontIndirectW(&design));
    const auto give = [&font](HWND window) {
        SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
    };
    give(dialog_);
    for (const Placed& control : ControlsOf(dialog_)) {
        give(control.Control);
    }
    font_ = std::move(font);
}

void DialogResolution::Change(int dotsPerInch, const RECT& suggested) {
    if (dialog_ == nullptr || dotsPerInch <= 0 || dotsPerInch == dotsPerInch_) {
        return;
    }
    const std::vector<Placed> controls = ControlsOf(dialog_);
    SetWindowPos(dialog_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    ScaleFont(dotsPerInch);
    for (const auto& [control, place, entryHeight] : controls) {
        const int left = Scaled(place.left, dotsPerInch);
        const int top = Scaled(place.top, dotsPerInch);
        SetWindowPos(control, nullptr, left, top, Scaled(place.right, dotsPerInch) - left,
                     Scaled(place.bottom, dotsPerInch) - top,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
        if (entryHeight != LB_ERR) {
            SendMessageW(control, LB_SETITEMHEIGHT, 0, Scaled(entryHeight, dotsPerInch));
        }
    }
    dotsPerInch_ = dotsPerInch;
    RedrawWindow(dialog_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

}  // namespace ambrio
