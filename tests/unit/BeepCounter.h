#pragma once

#include "platform/win32/WindowsHeaders.h"
#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {

// While it lives, the beeps of this program are counted instead of heard. One at a time.
class BeepCounter {
  public:
    BeepCounter() { count_ = 0; }

    [[nodiscard]] int Count() const { return count_; }

  private:
    static BOOL WINAPI Beep(UINT /*kind*/) {
        ++count_;
        return TRUE;
    }

    static inline int count_ = 0;
    ReplacedImport import_{L"user32.dll", "MessageBeep", reinterpret_cast<void*>(&Beep)};
};

}  // namespace ambrio
