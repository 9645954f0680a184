#include "engine/SetLoop.h"

#include <optional>
#include <vector>

#include "engine/EngineTexts.h"
#include "settings/BackupSet.h"
#include "settings/GeneralOptions.h"
#include "settings/SetList.h"

namespace ambrio {

SetLoop::SetLoop(SettingsStore& settings, FolderWalk& walk, RunLog& log, StatusPanel& panel,
                 const RunState& state)
    : settings_(settings), walk_(walk), log_(log), panel_(panel), state_(state) {}

void SetLoop::RunAllSets() {
    const std::wstring sets = ReadSets(settings_);
    if (state_.Interrupted) {
        return;
    }
    if (sets.empty()) {
        log_.WriteLog(kNoSets, false);
        return;
    }
    const std::vector<std::wstring> names = SetNamesForRun(sets);
    for (std::size_t i = 0; i < names.size(); ++i) {
        RunSet(names[i]);
        // Wanted: not after the last Set, whose end is the list's end in any case.
        if (state_.Interrupted && i + 1 < names.size()) {
            return;
        }
    }
    ShowEndOfList();
}

void SetLoop::RunSet(const std::wstring& Name) {
    currentSet_ = Name;
    panel_.SetCaption(PanelLabel::lblSet, Name);
    const std::optional<BackupSet> set = LoadBackupSet(settings_, Name);
    if (set) {
        LogSetLine(Name, kSetStart);
        walk_.WalkFolder(set->rsSourceDir, set->rsDestnDir, set->rbRecursive, set->rsCopyType,
                         set->rbClearArchive, set->rbDeleteCopy, set->rbOverwriteReadOnly);
        LogSetLine(Name, kSetComplete);  // wanted: after an interrupt too
    } else {
        LogSetLine(Name, kSetNotSelected);
    }
    for (const PanelLabel label :
         {PanelLabel::lblSet, PanelLabel::lblSource, PanelLabel::lblDest}) {
        panel_.SetCaption(label, L"");
    }
    currentSet_.clear();
}

void SetLoop::LogSetLine(const std::wstring& Name, const wchar_t* word) {
    if (!state_.LogOnlyErrors) {
        log_.WriteLog(L"'" + Name + L"'" + word, false);
    }
}

void SetLoop::ShowEndOfList() {
    std::wstring errorText;
    if (state_.HasFailures()) {
        errorText = kErrorsReported + (kLineBreak + (kSee + log_.Path()));
    }
    panel_.SetCaption(PanelLabel::lblSet, kAllSetsProcessed + errorText);
    panel_.SetCaption(PanelLabel::lblFile, L"");
}

}  // namespace ambrio
