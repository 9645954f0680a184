#pragma once

#include <string>

#include "tests/e2e/support/Handles.h"
#include "tests/e2e/support/Waiting.h"

namespace ambrio::e2e {

// Lets calls of the system about certain files take as long as a test likes, in programs into which
// it has loaded the module. A file whose path contains "held" is copied so: the copy stands still
// at kHeldPercent and still tells of itself, as the system's own does.
class HeldFiles {
  public:
    HeldFiles();

    // The path of the module.
    [[nodiscard]] static std::wstring Module();

    // Waits until a call is held; false when none is soon.
    [[nodiscard]] bool WaitUntilHeld(Milliseconds limit = kSoon) const;
    // Calls that are held go on, and no other is held any more.
    void GoOn() const;
    // From now on calls are held again.
    void HoldAgain() const;

  private:
    UniqueHandle held_;
    UniqueHandle goOn_;
};

}  // namespace ambrio::e2e
