#include "platform/win32/windows/FormTimer.h"

namespace ambrio {

void FormTimer::SetEnabled(bool enabled) {
    if (enabled == isEnabled_ || window_ == nullptr) {
        return;
    }
    isEnabled_ = enabled;
    if (enabled) {
        SetTimer(window_, id_, static_cast<UINT>(interval_.count()), nullptr);
    } else {
        KillTimer(window_, id_);
    }
}

}  // namespace ambrio
