#pragma once

#include "platform/RuntimeError.h"

namespace ambrio {

// Tells the user of a failure that nothing has caught ("Run-time error 'N':", a blank line, the
// description) and, when the box is closed, ends the program at once.
[[noreturn]] void EndWithRuntimeError(const RuntimeError& error);

}  // namespace ambrio
