#include "platform/win32/files/Patience.h"

#include "platform/win32/system/Handle.h"

namespace ambrio {
namespace {

constexpr ULONGLONG kMostTime = 2'000;  // ms
constexpr DWORD kPause = 20;            // ms

bool IsOpenElsewhere(const std::wstring& extended) {
    // Shared with nobody, so that it fails whatever the others share.
    const auto file =
        MakeHandle<UniqueHandle>(CreateFileW(extended.c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                             FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    return !file && GetLastError() == ERROR_SHARING_VIOLATION;
}

}  // namespace

bool Patience::Wait() {
    const ULONGLONG now = GetTickCount64();
    if (end_ == 0) {
        end_ = now + kMostTime;
    }
    if (now >= end_) {
        return false;
    }
    if (yield_) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kPause, QS_ALLINPUT);
        yield_();
    } else {
        Sleep(kPause);
    }
    return true;
}

bool IsHeldByOthers(DWORD code, const std::wstring& extended, const std::wstring& otherExtended) {
    switch (code) {
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return true;
        case ERROR_ACCESS_DENIED:
            // Said of a target that is open as well as of one that this user may not replace.
            return IsOpenElsewhere(extended) || IsOpenElsewhere(otherExtended);
        default:
            return false;
    }
}

}  // namespace ambrio
