// Stands between the program and the files, from the moment at which this module is loaded into it:
// lets what the test names take as long as the test likes, as a sleeping disk or a server does.

#include <array>
#include <memory>
#include <string_view>

#include "platform/win32/WindowsHeaders.h"
#include "platform/win32/system/Handle.h"
#include "tests/e2e/StandIn.h"
#include "tests/support/win32/ImportTable.h"

namespace {

using namespace ambrio::e2e;

// Tells the test that a call is held. An event that no test has made holds nothing.
class Hold {
  public:
    Hold() : goOn_(OpenEventW(SYNCHRONIZE, FALSE, kGoOnEvent)) {
        const ambrio::UniqueHandle held(OpenEventW(EVENT_MODIFY_STATE, FALSE, kHeldEvent));
        SetEvent(held.get());
    }
    // True when the call may go on; false after the time, in ms.
    [[nodiscard]] bool Wait(DWORD time) const {
        return WaitForSingleObject(goOn_.get(), time) != WAIT_TIMEOUT;
    }

  private:
    ambrio::UniqueHandle goOn_;
};

bool Names(LPCWSTR path, const wchar_t* part) {
    return std::wstring_view(path).find(part) != std::wstring_view::npos;
}

LARGE_INTEGER SizeOf(LPCWSTR path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW(path, GetFileExInfoStandard, &data);
    LARGE_INTEGER size{};
    size.HighPart = static_cast<LONG>(data.nFileSizeHigh);
    size.LowPart = data.nFileSizeLow;
    return size;
}

// Like the system's own, which makes the new file as large as it is to be, tells after each piece
// how far it is, and takes the new file away when it is told to stop.
BOOL WINAPI CopyFileExHeld(LPCWSTR source, LPCWSTR target, LPPROGRESS_ROUTINE progress, LPVOID data,
                           LPBOOL cancel, DWORD flags) {
    if (!Names(source, kHeldCopy)) {
        return CopyFileExW(source, target, progress, data, cancel, flags);
    }
    const LARGE_INTEGER size = SizeOf(source);
    LARGE_INTEGER done = size;
    done.QuadPart = (size.QuadPart * kHeldPercent + 99) / 100;
    auto file = ambrio::MakeHandle<ambrio::UniqueHandle>(CreateFileW(
        target, GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    SetFilePointerEx(file.get(), size, nullptr, FILE_BEGIN);
    SetEndOfFile(file.get());
    bool isToStop = false;
    const Hold hold;
    const ULONGLONG end = GetTickCount64() + kHeldAtMost;
    do {
        isToStop =
            progress != nullptr && progress(size, done, size, done, 1, CALLBACK_CHUNK_FINISHED,
                                            nullptr, file.get(), data) == PROGRESS_CANCEL;
    } while (!isToStop && !hold.Wait(20) && GetTickCount64() < end);
    file.reset();
    DeleteFileW(target);
    if (isToStop) {
        SetLastError(ERROR_REQUEST_ABORTED);
        return FALSE;
    }
    return CopyFileExW(source, target, nullptr, nullptr, cancel, flags);
}

void HoldCall(LPCWSTR path) {
    if (Names(path, kHeldCall)) {
        static_cast<void>(Hold().Wait(kHeldAtMost));
    }
}

BOOL WINAPI GetFileAttributesExHeld(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data) {
    HoldCall(path);
    return GetFileAttributesExW(path, level, data);
}

HANDLE WINAPI CreateFileHeld(LPCWSTR path, DWORD access, DWORD share,
                             LPSECURITY_ATTRIBUTES security, DWORD disposition, DWORD flags,
                             HANDLE pattern) {
    HoldCall(path);
    return CreateFileW(path, access, share, security, disposition, flags, pattern);
}

UINT WINAPI GetDriveTypeOfServer(LPCWSTR root) {
    std::array<wchar_t, 8> drive{};
    GetEnvironmentVariableW(kServerDrive, drive.data(), static_cast<DWORD>(drive.size()));
    return drive[0] != 0 && root != nullptr && root[0] == drive[0] ? DRIVE_REMOTE
                                                                   : GetDriveTypeW(root);
}

template <typename Function>
ambrio::Replacement Replacing(const char* name, Function* function) {
    return {name, reinterpret_cast<void*>(function)};
}

bool Enter() {
    const std::array replacements = {
        Replacing("CopyFileExW", &CopyFileExHeld),
        Replacing("CreateFileW", &CreateFileHeld),
        Replacing("GetDriveTypeW", &GetDriveTypeOfServer),
        Replacing("GetFileAttributesExW", &GetFileAttributesExHeld),
    };
    return ambrio::ReplaceImports(replacements, {});
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    return reason != DLL_PROCESS_ATTACH || Enter() ? TRUE : FALSE;
}
