#pragma once

#include "engine/RunHost.h"
#include "engine/RunLog.h"
#include "engine/RunSignals.h"
#include "engine/RunState.h"
#include "engine/StatusPanel.h"
#include "platform/FileSystem.h"

namespace ambrio {

// What every step of a run works with. All of it must live longer than the steps.
struct RunContext {
    FileSystem& Files;
    RunLog& Log;
    StatusPanel& Panel;
    RunHost& Host;
    RunState& State;
    RunSignals& Signals;
};

}  // namespace ambrio
