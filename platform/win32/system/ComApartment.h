#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Lets this thread use the system's component objects, which the shell's own services need, for as
// long as it lives. Where the system refuses, they do not work and all else does.
class ComApartment {
  public:
    ComApartment()
        : isEntered_(SUCCEEDED(
              CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
    ~ComApartment() {
        if (isEntered_) {
            CoUninitialize();
        }
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

  private:
    bool isEntered_;
};

}  // namespace ambrio
