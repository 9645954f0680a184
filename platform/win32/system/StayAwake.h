#pragma once

namespace ambrio {

// Keeps the system, never the display, from falling asleep for as long as the object lives. To be
// destroyed on the thread that made it; not to be nested.
class StayAwake {
  public:
    StayAwake();
    ~StayAwake();
    StayAwake(const StayAwake&) = delete;
    StayAwake& operator=(const StayAwake&) = delete;
};

}  // namespace ambrio
