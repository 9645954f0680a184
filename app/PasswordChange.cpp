#include "app/PasswordChange.h"

#include "platform/win32/system/SystemLibrary.h"

namespace ambrio {

void ChangeScreenSaverPassword(std::int32_t ownerWindow) {
    const SystemLibrary mpr(L"mpr.dll");
    using ChangeFunction = DWORD(WINAPI*)(LPCSTR registryKey, HWND owner, DWORD, DWORD);
    if (const auto change = mpr.Function<ChangeFunction>("PwdChangePasswordA"); change != nullptr) {
        change("SCRSAVE", reinterpret_cast<HWND>(static_cast<INT_PTR>(ownerWindow)), 0, 0);
    }
}

}  // namespace ambrio
