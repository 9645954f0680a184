#pragma once

#include "platform/win32/WindowsHeaders.h"
#include "platform/win32/system/SystemLibrary.h"

namespace ambrio {

// What the system offers about network drives; null where it does not.
struct NetworkCalls {
    decltype(&WNetGetConnectionW) GetConnection = nullptr;
    decltype(&WNetAddConnection2W) AddConnection = nullptr;
};

// The library behind them, for as long as the object lives. Not linked: the system would take a
// file of that name from beside the program.
class NetworkLibrary {
  public:
    [[nodiscard]] NetworkCalls Calls() const {
        return {library_.Function<decltype(&WNetGetConnectionW)>("WNetGetConnectionW"),
                library_.Function<decltype(&WNetAddConnection2W)>("WNetAddConnection2W")};
    }

  private:
    SystemLibrary library_{L"mpr.dll"};
};

// Where a drive leads, and what the system says about that.
struct NetworkConnection {
    DWORD Code = ERROR_NOT_CONNECTED;
    std::wstring Share;  // of a drive that is connected or remembered
};

[[nodiscard]] NetworkConnection ConnectionOf(wchar_t letter, const NetworkCalls& calls);

}  // namespace ambrio
