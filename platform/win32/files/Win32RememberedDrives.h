#pragma once

#include <memory>
#include <optional>

#include "platform/RememberedDrives.h"
#include "platform/win32/files/NetworkLibrary.h"

namespace ambrio {

// The drives that this machine remembers for the user.
class Win32RememberedDrives : public RememberedDrives {
  public:
    Win32RememberedDrives() = default;
    // Asks these instead of the system.
    explicit Win32RememberedDrives(const NetworkCalls& calls) : calls_(calls) {}

    [[nodiscard]] std::wstring LostShare(wchar_t letter) override;
    void Connect(wchar_t letter, const std::wstring& share, const Yield& yield) override;

  private:
    // Loads the library when it is needed first, which it hardly ever is.
    [[nodiscard]] const NetworkCalls& Calls();

    std::unique_ptr<NetworkLibrary> library_;
    std::optional<NetworkCalls> calls_;
};

}  // namespace ambrio
