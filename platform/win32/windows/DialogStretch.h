#pragma once

#include <span>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// What a control does with the pixels by which its dialog becomes wider and higher.
struct Follower {
    int Control;
    bool MovesRight = false;
    bool Widens = false;
    bool MovesDown = false;
    bool Heightens = false;
};

// Lets the controls of a dialog (WS_THICKFRAME) follow its size, which never falls below the one
// that it was designed with. Where nothing follows its lower edge, it only becomes wider.
class DialogStretch {
  public:
    DialogStretch() = default;

    // To be called when the dialog and its controls have their designed places and sizes, and again
    // when they got others. `followers` must live longer.
    void Attach(HWND dialog, std::span<const Follower> followers);

    // To be called when a dialog has got other sizes as a whole: the present one is the least from
    // now on. Does nothing before Attach.
    void AttachAgain();

    // To be called for WM_SIZE and WM_GETMINMAXINFO; both do nothing before Attach.
    void OnSize();
    void OnSizeLimits(MINMAXINFO& limits) const;

  private:
    void Move(const Follower& follower, LONG wider, LONG higher) const;

    HWND dialog_ = nullptr;
    std::span<const Follower> followers_;
    SIZE designed_ = {};  // of the whole dialog
    SIZE inside_ = {};    // what the controls stand in now
};

}  // namespace ambrio
