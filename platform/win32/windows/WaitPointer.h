#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Shows the pointer that asks to wait, while it lives and no message is handled.
class WaitPointer {
  public:
    WaitPointer() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~WaitPointer() { SetCursor(before_); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;

  private:
    HCURSOR before_;
};

}  // namespace ambrio
