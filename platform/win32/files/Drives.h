#pragma once

#include <string>
#include <vector>

#include "platform/DriveKind.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

struct Drive {
    wchar_t Letter = L'\0';
    DriveKind Kind = DriveKind::Unknown;
    std::wstring Label;  // the volume's; of a network drive, the share
};

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
