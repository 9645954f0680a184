#pragma once

#include <atomic>
#include <cstdint>

namespace ambrio {

// What is known of the copy that the file system is at work on, and the way to break it off. Shared
// by the thread that owns the windows and the one that copies; every call may come from either.
class CopyWatch {
  public:
    // How many bytes of how many are copied. A file without content is copied at once.
    void NoteDone(std::uint64_t done, std::uint64_t all) {
        percent_ = all == 0 ? kWhole : static_cast<int>(done * kWhole / all);
    }
    // The share of the file that is copied, 0 to 100.
    [[nodiscard]] int PercentDone() const { return percent_; }

    // From now on the copy of any file that takes time fails, the one under way first; what it has
    // written goes. There is no way back.
    void BreakOff() { isBrokenOff_ = true; }
    [[nodiscard]] bool IsBrokenOff() const { return isBrokenOff_; }

  private:
    static constexpr int kWhole = 100;

    std::atomic<int> percent_ = 0;
    std::atomic<bool> isBrokenOff_ = false;
};

}  // namespace ambrio
