#pragma once

#include "tests/fuzz/FuzzInput.h"

namespace ambrio {

// Each tries one part of the program on whatever the input holds and throws std::logic_error when
// something does not hold that always must.
void FuzzSetList(FuzzInput input);
void FuzzTextConversion(FuzzInput input);
void FuzzCommandLine(FuzzInput input);
void FuzzDestinationFolder(FuzzInput input);
void FuzzRun(FuzzInput input);

}  // namespace ambrio
