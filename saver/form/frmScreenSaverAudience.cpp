// frmScreenSaver: who has the keys, and whether anybody can see it.

#include "saver/form/frmScreenSaver.h"

namespace ambrio {

LRESULT frmScreenSaver::ReceiveNotice(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ACTIVATEAPP) {
        ActivationChanges(wParam != FALSE);
    } else if (const auto notice = AudienceNotices::Read(message, wParam, lParam)) {
        AudienceChanges(*notice);
    }
    return Window::Receive(message, wParam, lParam);
}

// Whoever works with another window must see it. The form stays in front of the desktop and comes
// back to the top when it gets the keys again.
void frmScreenSaver::ActivationChanges(bool isOurs) {
    haveOthersTheKeys_ = !isOurs;
    if (!isToBeTopmost_) {
        return;
    }
    PlaceInLayer(isOurs, SWP_NOACTIVATE);  // or it would take the keys back
    StepBehindOthers();
}

// Leaving the top layer puts the form in front of all ordinary windows. To be called again and
// again, as the window that gets the keys may not be known yet when they are taken from the form.
void frmScreenSaver::StepBehindOthers() {
    if (!haveOthersTheKeys_ || !isToBeTopmost_) {
        return;
    }
    const HWND other = GetAncestor(GetForegroundWindow(), GA_ROOT);
    if (other != nullptr && other != Handle() &&
        (GetWindowLongW(other, GWL_EXSTYLE) & WS_EX_TOPMOST) == 0) {
        SetWindowPos(Handle(), other, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
        blackWindows_.StepBehind(other);
    }
}

void frmScreenSaver::AudienceChanges(const AudienceNotice& notice) {
    audience_.Hear(notice.Reason, notice.Holds);
    panel_->SetSeen(audience_.IsThere());
    // The system may have put the pointer elsewhere meanwhile.
    mouseMoveRule_.Forget();
}

// A pointer at rest, over which windows come and go, gets the same messages as one that moves. Over
// the panel its moves end nothing, but they are motion; the system tells the form of them so.
void frmScreenSaver::PointerIsOverChild() {
    POINT place{};
    if (GetCursorPos(&place) != FALSE) {
        pointer_.MovesTo(place.x, place.y);
    }
}

}  // namespace ambrio
