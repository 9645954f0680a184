#include "saver/form/SecureDesktop.h"

#include <array>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

bool IsOnSecureDesktop() {
    std::array<wchar_t, MAX_PATH> name{};
    const HDESK desktop = GetThreadDesktop(GetCurrentThreadId());
    if (GetUserObjectInformationW(desktop, UOI_NAME, name.data(), sizeof name, nullptr) == 0) {
        return false;
    }
    return lstrcmpiW(name.data(), L"Screen-saver") == 0 || lstrcmpiW(name.data(), L"Winlogon") == 0;
}

}  // namespace ambrio
