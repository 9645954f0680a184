#pragma once

#include <chrono>
#include <string>

#include "engine/FileCopier.h"
#include "engine/FolderWalk.h"
#include "engine/RunLog.h"
#include "settings/SettingKeys.h"
#include "tests/bench/IdleSurroundings.h"

namespace ambrio {

// What a run came to, and how long it took.
struct EngineRun {
    RunState State;
    std::chrono::duration<double> Lasted{0};

    [[nodiscard]] int Failures() const { return State.CopyErrors + State.FolderErrors; }
    // What the program is to end with.
    [[nodiscard]] int ExitCode() const {
        return State.HasFailures() || !State.FatalErrorText.empty() ? 1 : 0;
    }
};

// Has the engine copy one folder with its subfolders as a Set of the kind "Date/Time" does, without
// form and panel.
inline EngineRun RunEngine(FileSystem& files, const std::wstring& title, const std::wstring& source,
                           const std::wstring& destination) {
    Application application;
    application.Title = title;
    application.ProgramFolder = L".";
    EngineRun result;
    RunSignals signals;
    IdlePanel panel;
    IdleHost host;
    RunLog log(files, application, result.State);
    const RunContext run{files, log, panel, host, result.State, signals};
    FileCopier copier(run);
    FolderWalk walk(run, copier);
    const auto start = std::chrono::steady_clock::now();
    walk.CopyFiles(source, destination, true, kCopyTypeDateTime, false, false, false);
    files.EndExpecting();
    result.Lasted = std::chrono::steady_clock::now() - start;
    return result;
}

}  // namespace ambrio
