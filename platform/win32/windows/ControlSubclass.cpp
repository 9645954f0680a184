#include "platform/win32/windows/ControlSubclass.h"

#include "platform/win32/windows/CommonControls.h"

namespace ambrio {

ControlSubclass::~ControlSubclass() {
    if (control_ != nullptr) {
        CommonControls::RemoveSubclass(control_, Procedure);
    }
}

void ControlSubclass::AttachTo(HWND control) {
    control_ = control;
    CommonControls::SetSubclass(control, Procedure, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT ControlSubclass::PassOn(UINT message, WPARAM wParam, LPARAM lParam) const {
    return CommonControls::PassOn(control_, message, wParam, lParam);
}

LRESULT CALLBACK ControlSubclass::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam,
                                            UINT_PTR, DWORD_PTR data) {
    auto* subclass = reinterpret_cast<ControlSubclass*>(data);
    if (message == WM_NCDESTROY) {
        CommonControls::RemoveSubclass(handle, Procedure);
        subclass->control_ = nullptr;
        return CommonControls::PassOn(handle, message, wParam, lParam);
    }
    return subclass->Receive(message, wParam, lParam);
}

}  // namespace ambrio
