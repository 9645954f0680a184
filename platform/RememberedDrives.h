#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace ambrio {

// The network drives that the system remembers for the user from one session to the next.
class RememberedDrives {
  public:
    virtual ~RememberedDrives() = default;

    // The share that the drive is remembered to lead to, while it is not connected. Empty when it
    // is connected or not remembered, and when anything else has the letter.
    [[nodiscard]] virtual std::wstring LostShare(wchar_t letter) = 0;

    // Connects it again, asking nobody for anything; what is remembered stays as it is. Takes as
    // long as the network takes, and calls `yield` meanwhile. What fails leaves the drive missing.
    virtual void Connect(wchar_t letter, const std::wstring& share, const Yield& yield) = 0;
};

}  // namespace ambrio
