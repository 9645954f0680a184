#include "platform/win32/system/Win32Clock.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

DateTime Win32Clock::Now() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

}  // namespace ambrio
