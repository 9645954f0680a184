#include "engine/FolderWalk.h"

#include <optional>

#include "engine/DestinationFolder.h"
#include "engine/EngineTexts.h"
#include "engine/LeftoverSweep.h"
#include "engine/SourceListing.h"

namespace ambrio {

FolderWalk::FolderWalk(const RunContext& run, FileCopier& copier)
    : run_(run), copier_(copier), guard_(run.Files) {}

void FolderWalk::WalkFolder(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                            bool rbRecursive, const std::wstring& rsCopyType, bool rbClearArchive,
                            bool rbDeleteCopy, bool rbOverwriteReadOnly, bool isLink) {
    const FolderGuard::Level level(guard_, rsSourceDir, rsDestnDir, isLink);
    try {
        CopyFiles(rsSourceDir, rsDestnDir, rbRecursive, rsCopyType, rbClearArchive, rbDeleteCopy,
                  rbOverwriteReadOnly);
    } catch (const LogFailure&) {
        throw;
    } catch (const RuntimeError& failure) {
        ClearFsoStatus();
        ReportFolder(failure, kAccessing, rsSourceDir);
    }
}

void FolderWalk::CopyFiles(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                           bool rbRecursive, const std::wstring& rsCopyType, bool rbClearArchive,
                           bool rbDeleteCopy, bool rbOverwriteReadOnly) {
    run_.Panel.SetCaption(PanelLabel::lblSource, rsSourceDir);
    run_.Panel.SetCaption(PanelLabel::lblDest, rsDestnDir);
    run_.Panel.SetCaption(PanelLabel::lblFile, L"");
    const Preparation preparation = PrepareFolders(rsSourceDir, rsDestnDir);
    if (preparation == Preparation::Failed) {
        return;
    }
    if (preparation == Preparation::SourceMissing) {
        ++run_.State.FolderErrors;
        run_.Log.WriteLog(kMissingFolder + rsSourceDir + kMissingFolderEnd, false);
    } else {
        const Rules rules{rbRecursive, rsCopyType, rbClearArchive, rbDeleteCopy,
                          rbOverwriteReadOnly};
        const bool isNew = preparation == Preparation::DestinationMade;
        if (!CopyContents(rsSourceDir, rsDestnDir, isNew, rules)) {
            return;
        }
    }
    run_.Panel.SetCaption(PanelLabel::lblChecked, std::to_wstring(run_.State.FilesChecked));
}

FolderWalk::Preparation FolderWalk::PrepareFolders(const std::wstring& rsSourceDir,
                                                   const std::wstring& rsDestnDir) {
    bool isSourceThere = false;
    if (!Try([&] { isSourceThere = run_.Files.FolderExists(rsSourceDir); }, kAccessing,
             rsSourceDir)) {
        return Preparation::Failed;
    }
    if (!isSourceThere) {
        return Preparation::SourceMissing;
    }
    bool wasMade = false;
    std::wstring action = kAccessing;
    if (!Try([&] { wasMade = MakeDestinationFolder(run_.Files, rsDestnDir, action); }, action,
             rsDestnDir)) {
        return Preparation::Failed;
    }
    return wasMade ? Preparation::DestinationMade : Preparation::DestinationThere;
}

// False when the run was interrupted among the files. Only they look at that: the walk goes on with
// the remaining subfolders above, makes each one and hands over its first file. Wanted so.
bool FolderWalk::CopyContents(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                              bool isNew, const Rules& rules) {
    run_.Panel.SetCaption(PanelLabel::lblfsoStatus, kBuildingFileList);
    SourceListing source =
        FetchSourceListing(run_.Files, run_.Host, run_.Signals, rsSourceDir, rules.rbRecursive);
    if (!CopyListedFiles(rsSourceDir, rsDestnDir, isNew, source.Files, rules)) {
        return false;
    }
    if (source.BrokenOff) {
        throw RuntimeError(*source.BrokenOff);
    }
    run_.Panel.SetCaption(PanelLabel::lblfsoStatus, L"");
    run_.Panel.SetCaption(PanelLabel::lblFile, L"");
    source.Files = {};  // before going deeper
    if (rules.rbRecursive) {
        WalkSubFolders(rsSourceDir, rsDestnDir, source.SubFolders, rules);
    }
    return true;
}

bool FolderWalk::CopyListedFiles(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                                 bool isNew, const std::vector<std::wstring>& files,
                                 const Rules& rules) {
    DestinationListing destination(run_.Files, rsSourceDir, rsDestnDir);
    if (isNew) {
        destination.KnowEmpty();
    } else if (!run_.Signals.Interrupted) {
        destination.Fetch(run_.Host, run_.Signals);
        SweepLeftovers(run_.Files, destination, files);
    }
    for (const std::wstring& name : files) {
        ClearFsoStatus();
        copier_.CopyFile({name, FileSystem::BuildPath(rsSourceDir, name)}, destination,
                         rules.rsCopyType, rules.rbClearArchive, rules.rbDeleteCopy,
                         rules.rbOverwriteReadOnly);
        run_.Host.DoEvents();
        if (run_.Signals.Interrupted) {
            return false;
        }
    }
    return true;
}

void FolderWalk::WalkSubFolders(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                                const std::vector<FileEntry>& subFolders, const Rules& rules) {
    run_.Panel.SetCaption(PanelLabel::lblfsoStatus, kBuildingFolderList);
    for (const FileEntry& subFolder : subFolders) {
        ClearFsoStatus();
        const std::wstring path = FileSystem::BuildPath(rsSourceDir, subFolder.Name);
        const std::wstring destination = FileSystem::BuildPath(rsDestnDir, subFolder.Name);
        if (MayEnter(subFolder, path, destination)) {
            WalkFolder(path, destination, rules.rbRecursive, rules.rsCopyType, rules.rbClearArchive,
                       rules.rbDeleteCopy, rules.rbOverwriteReadOnly, subFolder.IsLink());
        }
    }
    run_.Panel.SetCaption(PanelLabel::lblfsoStatus, L"");
}

bool FolderWalk::MayEnter(const FileEntry& subFolder, const std::wstring& path,
                          const std::wstring& destination) {
    bool may = false;
    return Try([&] { may = guard_.MayEnter(subFolder, path, destination); }, kAccessing, path) &&
           may;
}

// `action` is read after the step, which may change it.
bool FolderWalk::Try(const std::function<void()>& step, const std::wstring& action,
                     const std::wstring& folder) {
    std::optional<RuntimeError> failure;
    try {
        step();
    } catch (const RuntimeError& error) {
        failure = error;
    }
    if (failure) {
        ReportFolder(*failure, action, folder);
    }
    return !failure;
}

void FolderWalk::ReportFolder(const RuntimeError& failure, const std::wstring& action,
                              const std::wstring& folder) {
    ++run_.State.FolderErrors;
    run_.Log.WriteLog(failure.LogText() + kWhile + action + kFolder + PathLine(folder), false);
}

void FolderWalk::ClearFsoStatus() {
    if (!run_.Panel.Caption(PanelLabel::lblfsoStatus).empty()) {
        run_.Panel.SetCaption(PanelLabel::lblfsoStatus, L"");
    }
}

}  // namespace ambrio
