// frmScreenSaver: how it follows the resolution of the monitor that it is on.

#include "platform/Twips.h"
#include "platform/win32/system/SentData.h"
#include "saver/form/frmScreenSaver.h"

namespace ambrio {
namespace {

// Other programs can send numbers that no monitor has.
bool IsResolution(int dotsPerInch) {
    constexpr int kLowest = 48;
    constexpr int kHighest = 960;
    return dotsPerInch >= kLowest && dotsPerInch <= kHighest;
}

}  // namespace

// All that is drawn keeps its size and its place in twips. An ordinary window goes where the system
// suggests, which keeps it under the pointer that drags it from monitor to monitor; a form that
// covers the screen has its place already.
void frmScreenSaver::ResolutionChanges(WPARAM wParam, LPARAM lParam) {
    const int across = LOWORD(wParam);
    const int down = HIWORD(wParam);
    const auto suggested = ReadSentData<RECT>(lParam);
    if (!suggested || !IsResolution(across) || !IsResolution(down)) {
        return;
    }
    const ScreenTwips twips{TwipsPerPixel(across), TwipsPerPixel(down)};
    if (twips == twips_) {
        return;
    }
    twips_ = twips;
    if (StaysOrdinaryWindow(application_.CommandLine)) {
        SetWindowPos(Handle(), nullptr, suggested->left, suggested->top,
                     suggested->right - suggested->left, suggested->bottom - suggested->top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    panel_->Rescale(twips.X, twips.Y);
    plate_->SetResolution(down);
    mouseMoveRule_.Forget();  // what it keeps are twips of before
    InvalidateRect(Handle(), nullptr, FALSE);
}

}  // namespace ambrio
