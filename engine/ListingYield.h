#pragma once

#include "engine/RunHost.h"

namespace ambrio {

// How many entries of a listing are read before pending events run.
inline constexpr int kEntriesBetweenYields = 256;

// Counts the entries of one listing and lets pending events run now and then.
class ListingYield {
  public:
    // The host must live longer.
    explicit ListingYield(RunHost& host) : host_(host) {}

    void CountEntry() {
        if (++count_ % kEntriesBetweenYields == 0) {
            host_.DoEvents();
        }
    }

  private:
    RunHost& host_;
    int count_ = 0;
};

}  // namespace ambrio
