#pragma once

#include <string>

#include "engine/RunSignals.h"
#include "engine/RunState.h"

namespace ambrio {

// The texts that sum a run up.

// The sentence that begins "Of ".
[[nodiscard]] std::wstring SummarySentence(const RunState& state);

// How many folders could not be backed up.
[[nodiscard]] std::wstring UnprocessableFolders(const RunState& state);

// One of kInterrupted, kEnded, kCompleted.
[[nodiscard]] std::wstring EndWordOf(const RunState& state, const RunSignals& signals);

// What the box at the form's end says, a line for each kind of failure and where the log lies;
// empty when nothing failed.
[[nodiscard]] std::wstring FailureSummaryText(const RunState& state, const std::wstring& logPath);

}  // namespace ambrio
