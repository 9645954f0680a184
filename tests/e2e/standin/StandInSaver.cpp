// Stands in for another screen saver: writes down how it was started, and ends.

#include <cstddef>

#include "platform/win32/WindowsHeaders.h"
#include "tests/e2e/StandIn.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int showState) {
    using namespace ambrio::e2e;
    const auto state = static_cast<DWORD>(showState);
    const wchar_t* line = GetCommandLineW();
    const std::size_t bytes = (static_cast<std::size_t>(lstrlenW(line)) + 1) * sizeof(wchar_t);
    RegSetKeyValueW(HKEY_CURRENT_USER, kStandInKey, kSaverShowState, REG_DWORD, &state,
                    sizeof state);
    RegSetKeyValueW(HKEY_CURRENT_USER, kStandInKey, kSaverCommandLine, REG_SZ, line,
                    static_cast<DWORD>(bytes));
    return 0;
}
