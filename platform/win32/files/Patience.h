#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Waits for programs that look into a new file for a moment (virus scanners, indexers) and keep it
// from being renamed or removed meanwhile. One object serves one copy: all its waits together take
// two seconds at most.
class Patience {
  public:
    // `yield` may be empty, is called in every wait and must live longer.
    explicit Patience(const Yield& yield) : yield_(yield) {}

    // Waits a little; false when the time is over.
    [[nodiscard]] bool Wait();

  private:
    const Yield& yield_;
    ULONGLONG end_ = 0;  // ms of the system's clock; 0 before the first wait
};

// Whether a step failed with that Win32 error code because another program has one of the two files
// open; one that was refused for good is not worth waiting for.
[[nodiscard]] bool IsHeldByOthers(DWORD code, const std::wstring& extended,
                                  const std::wstring& otherExtended);

}  // namespace ambrio
