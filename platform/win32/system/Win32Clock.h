#pragma once

#include "platform/Clock.h"

namespace ambrio {

// The system's local time.
class Win32Clock : public Clock {
  public:
    DateTime Now() override;
};

}  // namespace ambrio
