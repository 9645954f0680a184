#pragma once

#include <string>

#include "tests/e2e/support/Handles.h"

namespace ambrio::e2e {

// Loads a module into a process that was started suspended, before its own first instruction.
// Throws std::system_error or std::runtime_error; the process is then left as it is.
void LoadModuleInto(HANDLE process, const std::wstring& module);

}  // namespace ambrio::e2e
