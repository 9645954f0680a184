#pragma once

#include <vector>

#include "platform/Drive.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The drives that there are, by letter. Diskette and network drives are not touched for it, as that
// can take long.
[[nodiscard]] std::vector<Drive> ListDrives();

// While it lives, a drive that is not ready fails quietly, without the system's own box.
class QuietDrives {
  public:
    QuietDrives();
    ~QuietDrives();
    QuietDrives(const QuietDrives&) = delete;
    QuietDrives& operator=(const QuietDrives&) = delete;

  private:
    UINT previous_;
};

}  // namespace ambrio
