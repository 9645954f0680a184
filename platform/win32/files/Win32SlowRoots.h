#pragma once

#include <map>

#include "platform/SlowRoots.h"

namespace ambrio {

// The shares and drives of this machine. What kind a drive is of is asked once, of the system and
// not of the drive.
class Win32SlowRoots : public SlowRoots {
  public:
    [[nodiscard]] std::wstring RootOf(const std::wstring& path) override;
    [[nodiscard]] std::optional<ErrorNumber> TroubleWith(const std::wstring& root) override;
    [[nodiscard]] std::chrono::milliseconds Now() override;

  private:
    [[nodiscard]] bool IsSlow(wchar_t drive);

    std::map<wchar_t, bool> slow_;  // the drives that are known
};

}  // namespace ambrio
