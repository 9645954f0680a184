#include "tests/e2e/support/Waiting.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

bool WaitUntil(const std::function<bool()>& condition, Milliseconds limit,
               Milliseconds betweenLooks) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(limit.count());
    while (!condition()) {
        if (GetTickCount64() >= end) {
            return false;
        }
        Sleep(static_cast<DWORD>(betweenLooks.count()));
    }
    return true;
}

}  // namespace ambrio::e2e
