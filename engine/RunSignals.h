#pragma once

#include <string>

namespace ambrio {

// What the form and its run tell each other. It lives as long as the form, from before the run
// until after it, and is used on the form's thread only.
struct RunSignals {
    bool Interrupted = false;     // stop at the next test; the one channel from input to the run
    bool CopyInProgress = false;  // the platform is at work on a file
    bool RunStarted = false;
    bool RunFinished = false;      // the one channel from the run to input
    std::wstring CopiedFile = {};  // the name of the file that is copied, or was last
};

}  // namespace ambrio
