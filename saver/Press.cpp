#include "saver/Press.h"

namespace ambrio {
namespace {

// From Windows 8 on. Without an answer the system makes clicks of pens and fingers, but only when
// they are lifted again, and none of a stroke.
constexpr UINT kPointerDown = 0x0246;             // WM_POINTERDOWN
constexpr UINT kPointerWheel = 0x024E;            // WM_POINTERWHEEL
constexpr UINT kPointerHorizontalWheel = 0x024F;  // WM_POINTERHWHEEL

}  // namespace

bool IsPress(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_XBUTTONDOWN:
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
        case kPointerDown:
        case kPointerWheel:
        case kPointerHorizontalWheel:
            return true;
        default:
            return false;
    }
}

}  // namespace ambrio
