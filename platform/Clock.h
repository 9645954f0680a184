#pragma once

#include "platform/DateTime.h"

namespace ambrio {

// Tells the local date and time.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual DateTime Now() = 0;
};

}  // namespace ambrio
