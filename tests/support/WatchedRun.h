#pragma once

#include "tests/model/ReferenceRun.h"
#include "tests/support/EngineBench.h"

namespace ambrio {

// One run of a bench as the reference model sees it: looks at the bench when it is made, before the
// run, and again when it is asked for the outcome. What panel and host have recorded before is
// dropped. The bench must live longer.
class WatchedRun {
  public:
    explicit WatchedRun(EngineBench& bench);

    // The world before the run, for Foretell.
    [[nodiscard]] ModelWorld& World() { return world_; }
    // What the run has come to; to be asked when it is over.
    [[nodiscard]] RunOutcome Outcome() const;
    // In what it differs from what the model foretells for these faults; empty when in nothing.
    // Anything left open is a difference too.
    [[nodiscard]] std::string Trouble(const FaultPlan& fails) const;

  private:
    EngineBench& bench_;
    ModelWorld world_;
};

// Nothing fails.
[[nodiscard]] inline FaultPlan NoFaults() {
    return [](Stage, const std::wstring&) { return std::nullopt; };
}

}  // namespace ambrio
