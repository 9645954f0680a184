#pragma once

#include <string>

#include "engine/FileCopier.h"
#include "engine/FolderWalk.h"
#include "engine/RunContext.h"
#include "engine/RunHost.h"
#include "engine/RunLog.h"
#include "engine/RunSignals.h"
#include "engine/RunState.h"
#include "engine/SecondarySaver.h"
#include "engine/SetLoop.h"
#include "engine/StatusPanel.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "platform/SettingsStore.h"

namespace ambrio {

// Performs the backup run of one form. Everything passed in must live longer than the driver.
class RunDriver {
  public:
    RunDriver(const Application& application, FileSystem& fileSystem, SettingsStore& settings,
              Clock& clock, StatusPanel& panel, RunHost& host, RunSignals& signals);

    // One whole run, to be called once, on the form's thread. Returns when the run is over or was
    // interrupted, after its closing steps; failures are logged, counted and shown, none comes out.
    // May unload the form or end the program through the host; after RunHost::End it does nothing
    // more. RunStarted and RunFinished are the caller's.
    void DoTheBiz();

    // What the run has counted and noted so far.
    [[nodiscard]] const RunState& State() const { return state_; }

    // What the box titled kFailureSummaryTitle says when the form closes; empty when nothing
    // failed.
    [[nodiscard]] std::wstring FailureSummary();

  private:
    // The steps of a run: up to the Sets' end, the end of the log, the hand-over.
    void Prepare();
    void ClearLogOnNewDay();
    void RunUntilSetsEnd();
    void WriteClosingBlock();
    void TryWriteClosingBlock();
    void KeepFatalError(const RuntimeError& failure);
    void AddFatalErrorText(const std::wstring& text);
    void NoteIfLogRefused(const RuntimeError& failure);
    void CloseDisplay();
    HandOver HandOverToSecondarySaver();

    const Application& application_;
    FileSystem& fileSystem_;
    SettingsStore& settings_;
    Clock& clock_;
    StatusPanel& panel_;
    RunHost& host_;
    RunSignals& signals_;
    RunState state_;
    RunLog log_;
    const RunContext run_;
    FileCopier copier_;
    FolderWalk walk_;
    SetLoop sets_;
    std::wstring EndWord_;
    bool IsLogRefused_ = false;  // perhaps for a reason that the user can do away with
};

}  // namespace ambrio
