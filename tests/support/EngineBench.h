#pragma once

#include <string>
#include <vector>

#include "engine/RunDriver.h"
#include "engine/RunSignals.h"
#include "engine/RunState.h"
#include "platform/Application.h"
#include "platform/CopyAhead.h"
#include "tests/support/AtOncePool.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/MemorySettingsStore.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/RecordingPanel.h"

namespace ambrio {

// Everything a run needs, in memory: the program lies in "C:\Ambrio", which exists.
class EngineBench {
  public:
    EngineBench();

    // Adds a Set that copies `source` to `destination`, and appends it to the list of Sets.
    void AddSet(const std::wstring& name, const std::wstring& source,
                const std::wstring& destination);
    void Set(const std::wstring& section, const std::wstring& key, const std::wstring& value);

    // One run of a form of its own: a new driver, and of the signals only Interrupted is
    // kept.
    void Run() { Run(Files, Settings); }
    void Run(FileSystem& fileSystem, SettingsStore& settings);

    // The files with copies made ahead of their turn, for each folder that has any to copy.
    [[nodiscard]] FileSystem& FilesAhead() { return ahead_; }

    // The lines of the log, wherever it lies, without their line ends; none when there is no log.
    [[nodiscard]] std::vector<std::wstring> Log();
    // Whether it holds the lines, one after the other.
    [[nodiscard]] bool HasLog(const std::vector<std::wstring>& lines);
    // Interrupts the run at the n-th time that it lets events run.
    void InterruptAtEvent(int n);
    [[nodiscard]] static std::wstring LogFile() { return L"C:\\Ambrio\\Ambrio.log"; }

    Application App;
    MemoryFileSystem Files;
    MemorySettingsStore Settings;
    ManualClock Time{DateTime{2026, 11, 21, 15, 49, 46}};
    RecordingPanel Panel;
    RecordingHost Host;
    RunSignals Signals;
    RunState State;               // of the last run, once it is over
    std::wstring FailureSummary;  // what the form would show after the last run

  private:
    AtOncePool pool_;
    CopyAhead ahead_{Files, pool_, 0};
};

}  // namespace ambrio
