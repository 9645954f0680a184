#pragma once

#include <string>

namespace ambrio {

// From now on each call that this program makes of the system about something in one folder takes
// so many milliseconds longer, whatever thread it comes from: as on a slow drive, threads wait side
// by side. The folder as an absolute path; a flush is taken for one of it. Throws
// std::runtime_error. Once in a process.
void SlowCallsDown(const std::wstring& folder, unsigned milliseconds);

// How many such calls there were. On any thread.
[[nodiscard]] int SlowCalls();

}  // namespace ambrio
