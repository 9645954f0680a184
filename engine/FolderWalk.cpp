#include "engine/FolderWalk.h"

#include <optional>
#include <utility>

#include "engine/Counted.h"
#include "engine/DestinationFolder.h"
#include "engine/FolderGuard.h"
#include "engine/LeftoverSweep.h"
#include "engine/ListingYield.h"
#include "engine/LookAhead.h"
#include "engine/SameFile.h"
#include "engine/WalkedSet.h"
#include "platform/DecimalText.h"
#include "platform/PlainName.h"
#include "platform/TemporaryName.h"
#include "settings/BackupSet.h"

namespace ambrio {

FolderWalk::FolderWalk(const RunContext& run, FileCopier& copier) : run_(run), copier_(copier) {}

void FolderWalk::CopyFiles(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                           bool rbRecursive, const std::wstring& rsCopyType, bool rbClearArchive,
                           bool rbDeleteCopy, bool rbOverwriteReadOnly) {
    BackupSet set;
    set.rsSourceDir = rsSourceDir;
    set.rsDestnDir = rsDestnDir;
    set.rbRecursive = rbRecursive;
    set.rsCopyType = rsCopyType;
    set.rbClearArchive = rbClearArchive;
    set.rbDeleteCopy = rbDeleteCopy;
    set.rbOverwriteReadOnly = rbOverwriteReadOnly;
    const WalkedSet walked(run_.Files, std::move(set));
    WalkFolder(WalkedFolder(run_.Files, walked));
}

void FolderWalk::WalkFolder(const WalkedFolder& folder) {
    try {
        BackUpFolder(folder);
    } catch (const LogFailure&) {
        throw;
    } catch (const RuntimeError& failure) {
        ClearFsoStatus();
        ReportFolder(failure, FolderAction::Accessing, folder.Source().Path());
    }
}

void FolderWalk::BackUpFolder(const WalkedFolder& folder) {
    run_.Panel.SetCaption(PanelLabel::lblSource, folder.Source().Path());
    run_.Panel.SetCaption(PanelLabel::lblDest, folder.Destination().Path());
    run_.Panel.SetCaption(PanelLabel::lblFile, L"");
    const Preparation preparation = PrepareFolders(folder);
    if (preparation == Preparation::Failed) {
        return;
    }
    if (preparation == Preparation::SourceMissing) {
        const Counted error(run_.State.FolderErrors);
        run_.Log.WriteLog(FolderMissing(folder.Source().Path()), false);
    } else if (!CopyContents(folder, preparation == Preparation::DestinationMade)) {
        return;
    }
    run_.Panel.SetCaption(PanelLabel::lblChecked, DecimalText(run_.State.FilesChecked));
}

FolderWalk::Preparation FolderWalk::PrepareFolders(const WalkedFolder& folder) {
    const KnownFolder& source = folder.Source();
    const KnownFolder& destination = folder.Destination();
    bool isSourceThere = false;
    if (!Try([&] { isSourceThere = run_.Files.FolderExists(source.Path()); },
             FolderAction::Accessing, source)) {
        return Preparation::Failed;
    }
    if (!isSourceThere) {
        return Preparation::SourceMissing;
    }
    if (!IsFollowable(source)) {
        return Preparation::Failed;
    }
    bool wasMade = false;
    FolderAction action = FolderAction::Accessing;
    if (!Try([&] { wasMade = MakeDestinationFolder(run_.Files, destination.Path(), action); },
             action, destination)) {
        return Preparation::Failed;
    }
    // Only now, as somebody else may have been the one who made it.
    if (!IsFollowable(destination)) {
        return Preparation::Failed;
    }
    return wasMade ? Preparation::DestinationMade : Preparation::DestinationThere;
}

bool FolderWalk::IsFollowable(const KnownFolder& folder) {
    return Try([&] { RequireFollowable(run_.Files, folder.Path()); }, FolderAction::Accessing,
               folder);
}

// False when the run was interrupted among the files. Only they look at that: the walk goes on with
// the remaining subfolders above, makes each one and hands over its first file. Wanted so.
bool FolderWalk::CopyContents(const WalkedFolder& folder, bool isNew) {
    ShowFsoStatus(kBuildingFileList);
    std::vector<FileEntry> subFolders;
    if (!CopyListedFiles(folder, isNew, subFolders)) {
        return false;
    }
    ShowFsoStatus(L"");
    run_.Panel.SetCaption(PanelLabel::lblFile, L"");
    if (folder.Set().Record.rbRecursive) {
        WalkSubFolders(folder, subFolders);
    }
    return true;
}

// Each file is handed over soon after the listing yields it, so that little time passes in which it
// can vanish; the subfolders wait until the listing is closed.
bool FolderWalk::CopyListedFiles(const WalkedFolder& folder, bool isNew,
                                 std::vector<FileEntry>& subFolders) {
    const std::unique_ptr<FolderReader> listing = folder.Source().GetListing();
    DestinationListing destination(run_.Files, folder);
    if (isNew) {
        destination.KnowEmpty();
    } else if (!run_.Signals.Interrupted) {
        destination.Fetch(run_.Host, run_.Signals);
        SweepLeftovers(run_.Files, destination);
    }
    folder.Destination().CloseListing();
    ListingYield yield(run_.Host);
    LookAhead ahead(run_, *listing, destination);
    FileEntry entry;
    while (ahead.Next(entry)) {
        if (!IsPlainName(entry.Name)) {
            ReportFolder(RuntimeError(ErrorNumber::BadFileNameOrNumber), FolderAction::Accessing,
                         FileSystem::BuildPath(folder.Source().Path(), entry.Name));
        } else if (entry.IsFolder()) {
            yield.CountEntry();
            if (folder.Set().Record.rbRecursive) {
                subFolders.push_back(entry);
            }
        } else if (!IsOwnTemporary(entry.Name, destination) && !HandOver(entry.Name, destination)) {
            return false;
        }
    }
    return true;
}

// In a folder that is copied to itself.
bool FolderWalk::IsOwnTemporary(const std::wstring& name, const DestinationListing& destination) {
    return IsTemporaryName(name) && destination.IsSourceItself();
}

// False when the run is interrupted.
bool FolderWalk::HandOver(const std::wstring& name, DestinationListing& destination) {
    ClearFsoStatus();
    if (copier_.CopyFile(name, destination) == FileCopier::Outcome::OnlyChecked) {
        run_.Host.DoEventsSoon();
    } else {
        run_.Host.DoEvents();
    }
    return !run_.Signals.Interrupted;
}

void FolderWalk::WalkSubFolders(const WalkedFolder& folder,
                                const std::vector<FileEntry>& subFolders) {
    ShowFsoStatus(kBuildingFolderList);
    Entered entered;
    for (const FileEntry& entry : subFolders) {
        ClearFsoStatus();
        const WalkedFolder subFolder(folder, entry);
        if (MayEnter(subFolder, entry) && HasOwnPlace(subFolder, entry.Name, entered)) {
            WalkFolder(subFolder);
        }
    }
    ShowFsoStatus(L"");
}

bool FolderWalk::MayEnter(const WalkedFolder& subFolder, const FileEntry& entry) {
    bool may = false;
    return Try([&] { may = subFolder.Set().Guard.MayEnter(subFolder, entry); },
               FolderAction::Accessing, subFolder.Source()) &&
           may;
}

bool FolderWalk::HasOwnPlace(const WalkedFolder& subFolder, const std::wstring& name,
                             Entered& entered) {
    const auto [first, isFirst] = entered.try_emplace(run_.Files.FoldedName(name), &name);
    if (isFirst) {
        return true;
    }
    const std::wstring& above = subFolder.Parent()->Destination().Path();
    if (AreOneFile(run_.Files, subFolder.Destination().Path(),
                   FileSystem::BuildPath(above, *first->second)) != std::optional(true)) {
        return true;
    }
    ReportFolder(RuntimeError(ErrorNumber::FileAlreadyExists), FolderAction::Accessing,
                 subFolder.Source().Path());
    return false;
}

// `action` is read after the step, which may change it.
bool FolderWalk::Try(const std::function<void()>& step, const FolderAction& action,
                     const KnownFolder& folder) {
    std::optional<RuntimeError> failure;
    try {
        step();
    } catch (const RuntimeError& error) {
        failure = error;
    }
    if (failure) {
        ReportFolder(*failure, action, folder.Path());
    }
    return !failure;
}

void FolderWalk::ReportFolder(const RuntimeError& failure, FolderAction action,
                              const std::wstring& path) {
    const Counted error(run_.State.FolderErrors);
    run_.Log.WriteLog(FolderNotProcessed(failure, action, path), false);
}

void FolderWalk::ShowFsoStatus(const std::wstring& caption) {
    run_.Panel.SetCaption(PanelLabel::lblfsoStatus, caption);
    fsoStatus_ = caption;
}

void FolderWalk::ClearFsoStatus() {
    if (!fsoStatus_.empty()) {
        ShowFsoStatus(L"");
    }
}

}  // namespace ambrio
