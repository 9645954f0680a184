// The engine at work on the real file system, with or without copies made ahead of their turn:
//   AheadCost SOURCE DESTINATION with|without [LATENCY]
// copies one folder with its subfolders as a Set of the kind "Date/Time" does. With a latency in
// milliseconds each call of the system about the destination takes so much longer. Prints the files
// copied, the failures, those calls, the most bytes in memory and the seconds.

#include <cwchar>
#include <iostream>
#include <string>

#include "platform/CopyAhead.h"
#include "platform/CopyWatch.h"
#include "platform/win32/files/Win32FileSystem.h"
#include "platform/win32/system/Win32WorkerPool.h"
#include "tests/bench/EngineRun.h"
#include "tests/bench/SlowCalls.h"

#include <psapi.h>

namespace ambrio {
namespace {

SIZE_T MostMemory() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PeakWorkingSetSize;
}

int Run(const std::wstring& source, const std::wstring& destination, bool isAhead,
        unsigned latency) {
    CopyWatch watch;
    Win32FileSystem disk(watch);
    Win32WorkerPool pool;
    CopyAhead ahead(disk, pool);
    FileSystem& files = isAhead ? static_cast<FileSystem&>(ahead) : disk;
    if (latency > 0) {
        SlowCallsDown(destination, latency);
    }
    const EngineRun run = RunEngine(files, L"AheadCost", source, destination);
    std::wcout << run.State.FilesCopied << L' ' << run.Failures() << L' ' << SlowCalls() << L' '
               << MostMemory() << L' ' << run.Lasted.count() << std::endl;
    return run.ExitCode();
}

}  // namespace
}  // namespace ambrio

int wmain(int count, wchar_t** arguments) {
    if (count < 4) {
        return 2;
    }
    const unsigned latency =
        count > 4 ? static_cast<unsigned>(std::wcstoul(arguments[4], nullptr, 10)) : 0;
    return ambrio::Run(arguments[1], arguments[2], std::wstring(arguments[3]) == L"with", latency);
}
