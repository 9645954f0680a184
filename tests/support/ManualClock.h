#pragma once

#include "platform/Clock.h"

namespace ambrio {

// A clock that stands where the test puts it.
class ManualClock : public Clock {
  public:
    explicit ManualClock(const DateTime& time) : Time(time) {}

    DateTime Now() override { return Time; }

    DateTime Time;
};

}  // namespace ambrio
