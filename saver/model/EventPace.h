#pragma once

#include <chrono>

namespace ambrio {

// How often a run lets events run while it only looks at files: to look at one takes less time than
// to ask the system whether anything waits.
class EventPace {
  public:
    using Time = std::chrono::steady_clock::time_point;

    // Whether events have waited for so long that they have to run now.
    [[nodiscard]] bool IsDue(Time now) const { return now < last_ || now - last_ >= kLongest; }
    // They have just run.
    void Note(Time now) { last_ = now; }

  private:
    static constexpr std::chrono::milliseconds kLongest{1};

    Time last_{};  // long before any run
};

}  // namespace ambrio
