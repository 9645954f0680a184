// The engine at work on the real file system without form and panel:
//   EngineAlone SOURCE DESTINATION [LATENCY]
// copies one folder with its subfolders as a Set of the kind "Date/Time" does. With a latency in
// milliseconds each call on the destination counts as so much longer. Prints the files checked and
// copied, the failures, the calls on the destination, the listings among them and the seconds.

#include <cwchar>
#include <iostream>
#include <string>

#include "platform/CopyWatch.h"
#include "platform/win32/files/Win32FileSystem.h"
#include "tests/bench/EngineRun.h"
#include "tests/bench/LatencyFileSystem.h"

namespace ambrio {
namespace {

int Run(const std::wstring& source, const std::wstring& destination, unsigned latency) {
    CopyWatch watch;
    Win32FileSystem disk(watch);
    LatencyFileSystem slowDisk(disk, destination, latency);
    FileSystem& files = latency > 0 ? static_cast<FileSystem&>(slowDisk) : disk;
    const EngineRun run = RunEngine(files, L"EngineAlone", source, destination);
    const std::chrono::duration<double> lasted = run.Lasted + slowDisk.Latency();
    std::wcout << run.State.FilesChecked << L' ' << run.State.FilesCopied << L' ' << run.Failures()
               << L' ' << slowDisk.Calls() << L' ' << slowDisk.Listings() << L' ' << lasted.count()
               << std::endl;
    return run.ExitCode();
}

}  // namespace
}  // namespace ambrio

int wmain(int count, wchar_t** arguments) {
    if (count < 3) {
        return 2;
    }
    const unsigned latency =
        count > 3 ? static_cast<unsigned>(std::wcstoul(arguments[3], nullptr, 10)) : 0;
    return ambrio::Run(arguments[1], arguments[2], latency);
}
