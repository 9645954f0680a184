#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "platform/RuntimeError.h"

namespace ambrio {

// The places that may keep whoever asks them waiting: shares of servers, remote and removable
// drives.
class SlowRoots {
  public:
    virtual ~SlowRoots() = default;

    // The one that a path lies on, in the same letters for each spelling; empty when it lies on a
    // disk of the machine's own. Asks no drive.
    [[nodiscard]] virtual std::wstring RootOf(const std::wstring& path) = 0;

    // Asks a root for nothing but itself: why it cannot be reached, or nothing when it can. May
    // take as long as anything else; may be called on any thread.
    [[nodiscard]] virtual std::optional<ErrorNumber> TroubleWith(const std::wstring& root) = 0;

    // A clock that only goes on; for any thread.
    [[nodiscard]] virtual std::chrono::milliseconds Now() = 0;
};

}  // namespace ambrio
