// Stands in for another screen saver: writes down how it was started, and ends.

#include <cstddef>

#include "platform/win32/WindowsHeaders.h"
#include "tests/e2e/StandIn.h"

namespace {

using namespace ambrio::e2e;

void Write(const wchar_t* name, const wchar_t* text) {
    const std::size_t bytes = (static_cast<std::size_t>(lstrlenW(text)) + 1) * sizeof(wchar_t);
    RegSetKeyValueW(HKEY_CURRENT_USER, kStandInKey, name, REG_SZ, text, static_cast<DWORD>(bytes));
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int showState) {
    const auto state = static_cast<DWORD>(showState);
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    Write(kSaverPath, path);
    RegSetKeyValueW(HKEY_CURRENT_USER, kStandInKey, kSaverShowState, REG_DWORD, &state,
                    sizeof state);
    Write(kSaverCommandLine, GetCommandLineW());
    return 0;
}
