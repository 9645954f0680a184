#pragma once

#include <string>

#include "platform/RuntimeError.h"
#include "tests/model/Stage.h"
#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

// The call that fails, and how.
struct StageFault {
    Stage At = Stage::End;
    ErrorNumber Number = ErrorNumber::PermissionDenied;
    std::wstring Path = {};  // what the call is about
    int CallsBefore = 0;     // calls of the same stage with the same path before it
    int Occurrence = 0;      // the how-manyth call of its stage it is, from 1
};

// The plan that the fault makes for the reference model.
[[nodiscard]] FaultPlan PlanOf(const StageFault& fault);

// Tells the stages of one run of a FaultScene, call by call.
class StageFinder {
  public:
    // To be asked once for each call, in their order.
    Stage StageOf(const FileCall& call);

  private:
    [[nodiscard]] Stage StageOfRead(const std::wstring& path) const;

    std::wstring removed_;  // the copy that was removed last
    std::wstring copied_;   // the source that was copied last
};

}  // namespace ambrio
