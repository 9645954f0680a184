#pragma once

#include <string>

#include "engine/FolderWalk.h"
#include "engine/RunContext.h"
#include "platform/SettingsStore.h"
#include "settings/BackupSet.h"

namespace ambrio {

// Runs the user's Sets in their order. What it is given must live longer.
class SetLoop {
  public:
    SetLoop(const RunContext& run, SettingsStore& settings, FolderWalk& walk);

    // Stops after the Set during which the run was interrupted. Throws RuntimeError when a Set's
    // settings cannot be read, and LogFailure.
    void RunAllSets();

    // The Set in hand; empty between Sets.
    [[nodiscard]] const std::wstring& CurrentSet() const { return currentSet_; }

  private:
    void RunSet(const std::wstring& Name);
    void ReconnectDrives(const BackupSet& set);
    void ShowEndOfList();
    // Unless only errors are to be logged.
    void LogSetLine(const std::wstring& line);

    const RunContext run_;
    SettingsStore& settings_;
    FolderWalk& walk_;
    std::wstring currentSet_;
};

}  // namespace ambrio
