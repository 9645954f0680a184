// The engine at work on the real file system without form and panel:
//   EngineAlone SOURCE DESTINATION [LATENCY]
// copies one folder with its subfolders as a Set of the kind "Date/Time" does. With a latency in
// milliseconds each call on the destination counts as so much longer. Prints the files checked and
// copied, the failures, the calls on the destination, the listings among them and the seconds.

#include <chrono>
#include <cwchar>
#include <iostream>
#include <string>

#include "engine/FileCopier.h"
#include "engine/FolderWalk.h"
#include "engine/RunLog.h"
#include "platform/CopyWatch.h"
#include "platform/win32/files/Win32FileSystem.h"
#include "settings/SettingKeys.h"
#include "tests/bench/IdleSurroundings.h"
#include "tests/bench/LatencyFileSystem.h"

namespace ambrio {
namespace {

int Run(const std::wstring& source, const std::wstring& destination, unsigned latency) {
    CopyWatch watch;
    Win32FileSystem disk(watch);
    LatencyFileSystem slowDisk(disk, destination, latency);
    FileSystem& files = latency > 0 ? static_cast<FileSystem&>(slowDisk) : disk;
    Application application;
    application.Title = L"EngineAlone";
    application.ProgramFolder = L".";
    RunState state;
    RunSignals signals;
    IdlePanel panel;
    IdleHost host;
    RunLog log(files, application, state);
    const RunContext run{files, log, panel, host, state, signals};
    FileCopier copier(run);
    FolderWalk walk(run, copier);
    const auto start = std::chrono::steady_clock::now();
    walk.CopyFiles(source, destination, true, kCopyTypeDateTime, false, false, false);
    const std::chrono::duration<double> lasted =
        std::chrono::steady_clock::now() - start + slowDisk.Latency();
    std::wcout << state.FilesChecked << L' ' << state.FilesCopied << L' '
               << state.CopyErrors + state.FolderErrors << L' ' << slowDisk.Calls() << L' '
               << slowDisk.Listings() << L' ' << lasted.count() << std::endl;
    return state.HasFailures() || !state.FatalErrorText.empty() ? 1 : 0;
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
