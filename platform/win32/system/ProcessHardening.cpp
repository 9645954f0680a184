#include "platform/win32/system/ProcessHardening.h"

#include "platform/win32/system/SystemLibrary.h"

namespace ambrio {

void HardenProcess() {
    HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    // Whatever its value.
    SetEnvironmentVariableW(L"NoDefaultCurrentDirectoryInExePath", L"1");
    // The current folder is left out on every system, the program's own folder on those that have
    // the second function: it came with an update of Windows 7.
    SetDllDirectoryW(L"");
    using SetDirectories = BOOL(WINAPI*)(DWORD);
    const SystemLibrary kernel(L"kernel32.dll");
    if (const auto set = kernel.Function<SetDirectories>("SetDefaultDllDirectories");
        set != nullptr) {
        set(LOAD_LIBRARY_SEARCH_SYSTEM32);
    }
}

}  // namespace ambrio
