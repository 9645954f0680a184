#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Sees the messages of a control before the control does. When the object goes, the control, if it
// is still there, is an ordinary one again.
class ControlSubclass {
  public:
    ControlSubclass() = default;
    ControlSubclass(const ControlSubclass&) = delete;
    ControlSubclass& operator=(const ControlSubclass&) = delete;

  protected:
    virtual ~ControlSubclass();

    // To be called once.
    void AttachTo(HWND control);
    // Null before that, and when the control is gone.
    [[nodiscard]] HWND Control() const { return control_; }

    // Answers a message of the control.
    virtual LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    // What the control itself makes of it.
    LRESULT PassOn(UINT message, WPARAM wParam, LPARAM lParam) const;

  private:
    static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR data);

    HWND control_ = nullptr;
};

}  // namespace ambrio
