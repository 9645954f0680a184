#include "platform/win32/files/CopyWithYield.h"

#include "platform/win32/system/WorkWithYield.h"

namespace ambrio {
namespace {

// A small file takes less time than to ask about it.
DWORD CopyAtOnce(const std::wstring& source, const std::wstring& target,
                 LPPROGRESS_ROUTINE progress = nullptr, CopyWatch* watch = nullptr) {
    return CopyFileExW(source.c_str(), target.c_str(), progress, watch, nullptr,
                       COPY_FILE_FAIL_IF_EXISTS) != 0
               ? ERROR_SUCCESS
               : GetLastError();
}

// The system calls it after each piece, and takes the new file away when it says so.
DWORD CALLBACK Watch(LARGE_INTEGER size, LARGE_INTEGER done, LARGE_INTEGER, LARGE_INTEGER, DWORD,
                     DWORD, HANDLE, HANDLE, LPVOID watch) {
    auto& copy = *static_cast<CopyWatch*>(watch);
    copy.NoteDone(static_cast<std::uint64_t>(done.QuadPart),
                  static_cast<std::uint64_t>(size.QuadPart));
    return copy.IsBrokenOff() ? PROGRESS_CANCEL : PROGRESS_CONTINUE;
}

}  // namespace

DWORD CopyWithYield(const std::wstring& source, const std::wstring& target, std::uint64_t size,
                    CopyWatch& watch, const Yield& yield) {
    if (size < kSmallFile) {
        return CopyAtOnce(source, target);
    }
    if (watch.IsBrokenOff()) {
        return ERROR_REQUEST_ABORTED;
    }
    watch.NoteDone(0, size);
    // The copy's progress calls are no substitute for a thread: they stay away while a server or a
    // sleeping disk keeps the copy waiting, which is when the user most wants an answer.
    DWORD code = ERROR_SUCCESS;
    WorkWithYield([&] { code = CopyAtOnce(source, target, &Watch, &watch); }, yield);
    return code;
}

}  // namespace ambrio
