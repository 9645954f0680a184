#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "engine/RunState.h"
#include "engine/StatusPanel.h"
#include "tests/faults/FaultScene.h"
#include "tests/faults/FaultStage.h"

namespace ambrio {

// Everything that a user can see of a run of a FaultScene when it is over.
struct RunOutcome {
    std::vector<std::wstring> Log;  // line by line
    bool LogIsElsewhere = false;
    RunState State;  // counters and FatalErrorText; the rest is not compared
    bool Interrupted = false;
    std::map<PanelLabel, std::wstring> Captions;
    std::vector<std::wstring> Actions;  // of the RecordingHost
    FileFacts Sources;
    FileFacts Copies;
    std::set<std::wstring> Leftovers;
};

// What a run with this one fault must come to. A fault at Stage::End is none. It is worked out from
// the plan of the scene, without the engine.
[[nodiscard]] RunOutcome ExpectedOutcome(const StageFault& fault);

}  // namespace ambrio
