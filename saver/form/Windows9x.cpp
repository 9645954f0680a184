#include "saver/form/Windows9x.h"

#include "platform/win32/system/SystemLibrary.h"

namespace ambrio {

std::int32_t GetPlatform() {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof(version);
    GetVersionExA(&version);
    return static_cast<std::int32_t>(version.dwPlatformId);
}

void TellScreenSaverRunning(bool running) {
    UINT previous = 0;
    SystemParametersInfoW(SPI_SCREENSAVERRUNNING, running ? 1 : 0, &previous, 0);
}

bool VerifyScreenSavePwd(HWND owner) {
    const SystemLibrary module(L"password.cpl");
    using VerifyFunction = BOOL(WINAPI*)(HWND);
    const auto verify = module.Function<VerifyFunction>("VerifyScreenSavePwd");
    return verify == nullptr || verify(owner) != FALSE;
}

}  // namespace ambrio
