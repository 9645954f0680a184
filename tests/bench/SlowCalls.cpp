#include "tests/bench/SlowCalls.h"

#include <array>
#include <atomic>
#include <cstring>
#include <stdexcept>

#include "platform/win32/NativeHeaders.h"
#include "platform/win32/WindowsHeaders.h"
#include "tests/support/win32/ImportTable.h"

namespace ambrio {
namespace {

std::wstring g_folder;
DWORD g_milliseconds = 0;
std::atomic<int> g_calls = 0;
decltype(&GetProcAddress) g_getProcAddress = nullptr;  // the system's own

void Wait() {
    ++g_calls;
    Sleep(g_milliseconds);
}

bool IsSlow(LPCWSTR path) {
    return path != nullptr && std::wstring(path).find(g_folder) != std::wstring::npos;
}

// A function of the system by its name and its type, which is that of the replacement's arguments.
template <typename Function>
Function* System(const char* name, Function*, const wchar_t* library = L"kernel32.dll") {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(g_getProcAddress(GetModuleHandleW(library), name)));
}

// The calls that name a path first, whatever follows.
template <auto function, const char* const& name>
struct Slow;
template <typename Result, typename... Rest, Result(WINAPI* function)(LPCWSTR, Rest...),
          const char* const& name>
struct Slow<function, name> {
    static Result WINAPI Call(LPCWSTR path, Rest... rest) {
        static const auto system = System(name, function);
        if (IsSlow(path)) {
            Wait();
        }
        return system(path, rest...);
    }
};

constexpr const char* kCreateDirectory = "CreateDirectoryW";
constexpr const char* kCreateFile = "CreateFileW";
constexpr const char* kDeleteFile = "DeleteFileW";
constexpr const char* kFindFirstFileEx = "FindFirstFileExW";
constexpr const char* kGetDiskFreeSpaceEx = "GetDiskFreeSpaceExW";
constexpr const char* kGetFileAttributes = "GetFileAttributesW";
constexpr const char* kGetFileAttributesEx = "GetFileAttributesExW";
constexpr const char* kMoveFileEx = "MoveFileExW";
constexpr const char* kSetFileAttributes = "SetFileAttributesW";

BOOL WINAPI SlowCopy(LPCWSTR from, LPCWSTR to, LPPROGRESS_ROUTINE progress, LPVOID data,
                     LPBOOL cancel, DWORD flags) {
    static const auto system = System("CopyFileExW", &CopyFileExW);
    if (IsSlow(to)) {
        Wait();
    }
    return system(from, to, progress, data, cancel, flags);
}

BOOL WINAPI SlowFlush(HANDLE file) {
    static const auto system = System("FlushFileBuffers", &FlushFileBuffers);
    Wait();
    return system(file);
}

// A rename of an open file.
NTSTATUS NTAPI SlowSetInformation(HANDLE file, PIO_STATUS_BLOCK status, PVOID data, ULONG size,
                                  FILE_INFORMATION_CLASS information) {
    static const auto system = System("NtSetInformationFile", &NtSetInformationFile, L"ntdll.dll");
    Wait();
    return system(file, status, data, size, information);
}

// So that every flush comes by here.
FARPROC WINAPI AddressWithoutOtherFlush(HMODULE library, LPCSTR name) {
    const bool isFlush = HIWORD(reinterpret_cast<ULONG_PTR>(name)) != 0 &&
                         std::strcmp(name, "NtFlushBuffersFileEx") == 0;
    return isFlush ? nullptr : g_getProcAddress(library, name);
}

template <typename Function>
Replacement Replacing(const char* name, Function* function) {
    return {name, reinterpret_cast<void*>(function)};
}

}  // namespace

void SlowCallsDown(const std::wstring& folder, unsigned milliseconds) {
    g_folder = folder;
    g_milliseconds = milliseconds;
    g_getProcAddress =
        reinterpret_cast<decltype(&GetProcAddress)>(ImportedFunction("GetProcAddress"));
    const std::array replacements = {
        Replacing("CopyFileExW", &SlowCopy),
        Replacing(kCreateDirectory, &Slow<&CreateDirectoryW, kCreateDirectory>::Call),
        Replacing(kCreateFile, &Slow<&CreateFileW, kCreateFile>::Call),
        Replacing(kDeleteFile, &Slow<&DeleteFileW, kDeleteFile>::Call),
        Replacing(kFindFirstFileEx, &Slow<&FindFirstFileExW, kFindFirstFileEx>::Call),
        Replacing("FlushFileBuffers", &SlowFlush),
        Replacing(kGetDiskFreeSpaceEx, &Slow<&GetDiskFreeSpaceExW, kGetDiskFreeSpaceEx>::Call),
        Replacing(kGetFileAttributes, &Slow<&GetFileAttributesW, kGetFileAttributes>::Call),
        Replacing(kGetFileAttributesEx, &Slow<&GetFileAttributesExW, kGetFileAttributesEx>::Call),
        Replacing("GetProcAddress", &AddressWithoutOtherFlush),
        Replacing(kMoveFileEx, &Slow<&MoveFileExW, kMoveFileEx>::Call),
        Replacing("NtSetInformationFile", &SlowSetInformation),
        Replacing(kSetFileAttributes, &Slow<&SetFileAttributesW, kSetFileAttributes>::Call),
    };
    constexpr std::array<const char*, 0> kUnknown{};
    if (!ReplaceImports(replacements, kUnknown)) {
        throw std::runtime_error("the calls cannot be slowed down");
    }
}

int SlowCalls() {
    return g_calls;
}

}  // namespace ambrio
