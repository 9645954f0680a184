#include "tests/e2e/support/Waiting.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

bool WaitUntil(const std::function<bool()>& condition, Milliseconds limit) {
    constexpr DWORD kBetweenLooks = 4;
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(limit.count());
    while (!condition()) {
        if (GetTickCount64() >= end) {
            return false;
        }
        Sleep(kBetweenLooks);
    }
    return true;
}

}  // namespace ambrio::e2e
