#include "platform/win32/windows/DialogStretch.h"

#include <algorithm>

namespace ambrio {
namespace {

SIZE InsideOf(HWND window) {
    RECT inside = {};
    GetClientRect(window, &inside);
    return {inside.right, inside.bottom};
}

}  // namespace

void DialogStretch::Attach(HWND dialog, std::span<const Follower> followers) {
    RECT place = {};
    GetWindowRect(dialog, &place);
    designed_ = {place.right - place.left, place.bottom - place.top};
    inside_ = InsideOf(dialog);
    followers_ = followers;
    dialog_ = dialog;
}

void DialogStretch::AttachAgain() {
    if (dialog_ != nullptr) {
        Attach(dialog_, followers_);
    }
}

void DialogStretch::OnSize() {
    if (dialog_ == nullptr) {
        return;
    }
    const SIZE before = inside_;
    inside_ = InsideOf(dialog_);
    for (const Follower& follower : followers_) {
        Move(follower, inside_.cx - before.cx, inside_.cy - before.cy);
    }
    InvalidateRect(dialog_, nullptr, TRUE);
}

void DialogStretch::Move(const Follower& follower, LONG wider, LONG higher) const {
    const HWND control = GetDlgItem(dialog_, follower.Control);
    RECT place = {};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&place), 2);
    // A combo box selects all of its text when it gets another size.
    DWORD begin = 0;
    DWORD end = 0;
    const LRESULT isCombo = SendMessageW(control, CB_GETEDITSEL, reinterpret_cast<WPARAM>(&begin),
                                         reinterpret_cast<LPARAM>(&end));
    SetWindowPos(control, nullptr, place.left + (follower.MovesRight ? wider : 0),
                 place.top + (follower.MovesDown ? higher : 0),
                 place.right - place.left + (follower.Widens ? wider : 0),
                 place.bottom - place.top + (follower.Heightens ? higher : 0),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    if (isCombo > 0) {
        SendMessageW(control, CB_SETEDITSEL, 0, MAKELPARAM(begin, end));
    }
}

void DialogStretch::OnSizeLimits(MINMAXINFO& limits) const {
    if (dialog_ == nullptr) {
        return;
    }
    limits.ptMinTrackSize = {designed_.cx, designed_.cy};
    if (std::none_of(followers_.begin(), followers_.end(), [](const Follower& follower) {
            return follower.MovesDown || follower.Heightens;
        })) {
        limits.ptMaxTrackSize.y = designed_.cy;
    }
}

}  // namespace ambrio
