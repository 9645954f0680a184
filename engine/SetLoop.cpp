#include "engine/SetLoop.h"

#include <optional>
#include <vector>

#include "engine/EngineTexts.h"
#include "settings/GeneralOptions.h"
#include "settings/SetList.h"

namespace ambrio {

SetLoop::SetLoop(const RunContext& run, SettingsStore& settings, FolderWalk& walk)
    : run_(run), settings_(settings), walk_(walk) {}

void SetLoop::RunAllSets() {
    const std::wstring sets = ReadSets(settings_);
    if (run_.Signals.Interrupted) {
        return;
    }
    if (sets.empty()) {
        run_.Log.WriteLog(kNoSets, false);
        return;
    }
    const std::vector<std::wstring> names = SetNamesForRun(sets);
    for (std::size_t i = 0; i < names.size(); ++i) {
        RunSet(names[i]);
        // Wanted: not after the last Set, whose end is the list's end in any case.
        if (run_.Signals.Interrupted && i + 1 < names.size()) {
            return;
        }
    }
    ShowEndOfList();
}

void SetLoop::RunSet(const std::wstring& Name) {
    currentSet_ = Name;
    run_.Panel.SetCaption(PanelLabel::lblSet, Name);
    const std::optional<BackupSet> set = LoadBackupSet(settings_, Name);
    if (set) {
        LogSetLine(SetStarts(Name));
        ReconnectDrives(*set);
        walk_.CopyFiles(set->rsSourceDir, set->rsDestnDir, set->rbRecursive, set->rsCopyType,
                        set->rbClearArchive, set->rbDeleteCopy, set->rbOverwriteReadOnly);
        LogSetLine(SetIsComplete(Name));  // wanted: after an interrupt too
    } else {
        LogSetLine(SetIsNotSelected(Name));
    }
    for (const PanelLabel label :
         {PanelLabel::lblSet, PanelLabel::lblSource, PanelLabel::lblDest}) {
        run_.Panel.SetCaption(label, L"");
    }
    currentSet_.clear();
}

void SetLoop::ReconnectDrives(const BackupSet& set) {
    for (const std::wstring& folder : {set.rsSourceDir, set.rsDestnDir}) {
        if (!run_.Signals.Interrupted) {
            run_.Host.ReconnectDrive(folder);
        }
    }
}

void SetLoop::LogSetLine(const std::wstring& line) {
    if (!run_.State.LogOnlyErrors) {
        run_.Log.WriteLog(line, false);
    }
}

void SetLoop::ShowEndOfList() {
    run_.Panel.SetCaption(PanelLabel::lblSet, run_.State.HasFailures()
                                                  ? AllSetsProcessedWithErrors(run_.Log.Path())
                                                  : kAllSetsProcessed);
    run_.Panel.SetCaption(PanelLabel::lblFile, L"");
}

}  // namespace ambrio
