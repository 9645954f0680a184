#include "engine/FolderWalk.h"

#include <optional>

#include "engine/DestinationFolder.h"
#include "engine/EngineTexts.h"
#include "engine/LeftoverSweep.h"
#include "engine/SourceListing.h"

namespace ambrio {

FolderWalk::FolderWalk(FileSystem& fileSystem, FileCopier& copier, RunLog& log, StatusPanel& panel,
                       RunHost& host, RunState& state)
    : fileSystem_(fileSystem),
      copier_(copier),
      log_(log),
      panel_(panel),
      host_(host),
      state_(state),
      guard_(fileSystem) {}

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
    panel_.SetCaption(PanelLabel::lblSource, rsSourceDir);
    panel_.SetCaption(PanelLabel::lblDest, rsDestnDir);
    panel_.SetCaption(PanelLabel::lblFile, L"");
    const Preparation preparation = PrepareFolders(rsSourceDir, rsDestnDir);
    if (preparation == Preparation::Failed) {
        return;
    }
    if (preparation == Preparation::SourceMissing) {
        ++state_.FolderErrors;
        log_.WriteLog(kMissingFolder + rsSourceDir + kMissingFolderEnd, false);
    } else {
        const Rules rules{rbRecursive, rsCopyType, rbClearArchive, rbDeleteCopy,
                          rbOverwriteReadOnly};
        const bool isNew = preparation == Preparation::DestinationMade;
        if (!CopyContents(rsSourceDir, rsDestnDir, isNew, rules)) {
            return;
        }
    }
    panel_.SetCaption(PanelLabel::lblChecked, std::to_wstring(state_.FilesChecked));
}

FolderWalk::Preparation FolderWalk::PrepareFolders(const std::wstring& rsSourceDir,
                                                   const std::wstring& rsDestnDir) {
    bool isSourceThere = false;
    if (!Try([&] { isSourceThere = fileSystem_.FolderExists(rsSourceDir); }, kAccessing,
             rsSourceDir)) {
        return Preparation::Failed;
    }
    if (!isSourceThere) {
        return Preparation::SourceMissing;
    }
    bool wasMade = false;
    std::wstring action = kAccessing;
    if (!Try([&] { wasMade = MakeDestinationFolder(fileSystem_, rsDestnDir, action); }, action,
             rsDestnDir)) {
        return Preparation::Failed;
    }
    return wasMade ? Preparation::DestinationMade : Preparation::DestinationThere;
}

// False when the run was interrupted among the files. Only they look at that: the walk goes on with
// the remaining subfolders above, makes each one and hands over its first file. Wanted so.
bool FolderWalk::CopyContents(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                              bool isNew, const Rules& rules) {
    panel_.SetCaption(PanelLabel::lblfsoStatus, kBuildingFileList);
    SourceListing source =
        FetchSourceListing(fileSystem_, host_, state_, rsSourceDir, rules.rbRecursive);
    if (!CopyListedFiles(rsSourceDir, rsDestnDir, isNew, source.Files, rules)) {
        return false;
    }
    if (source.BrokenOff) {
        throw RuntimeError(*source.BrokenOff);
    }
    panel_.SetCaption(PanelLabel::lblfsoStatus, L"");
    panel_.SetCaption(PanelLabel::lblFile, L"");
    source.Files = {};  // before going deeper
    if (rules.rbRecursive) {
        WalkSubFolders(rsSourceDir, rsDestnDir, source.SubFolders, rules);
    }
    return true;
}

bool FolderWalk::CopyListedFiles(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                                 bool isNew, const std::vector<std::wstring>& files,
                                 const Rules& rules) {
    DestinationListing destination(fileSystem_, rsSourceDir, rsDestnDir);
    if (isNew) {
        destination.KnowEmpty();
    } else if (!state_.Interrupted) {
        destination.Fetch(host_, state_);
        SweepLeftovers(fileSystem_, destination, files);
    }
    for (const std::wstring& name : files) {
        ClearFsoStatus();
        copier_.CopyFile({name, FileSystem::BuildPath(rsSourceDir, name)}, destination,
                         rules.rsCopyType, rules.rbClearArchive, rules.rbDeleteCopy,
                         rules.rbOverwriteReadOnly);
        host_.DoEvents();
        if (state_.Interrupted) {
            return false;
        }
    }
    return true;
}

void FolderWalk::WalkSubFolders(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                                const std::vector<FileEntry>& subFolders, const Rules& rules) {
    panel_.SetCaption(PanelLabel::lblfsoStatus, kBuildingFolderList);
    for (const FileEntry& subFolder : subFolders) {
        ClearFsoStatus();
        const std::wstring path = FileSystem::BuildPath(rsSourceDir, subFolder.Name);
        const std::wstring destination = FileSystem::BuildPath(rsDestnDir, subFolder.Name);
        if (MayEnter(subFolder, path, destination)) {
            WalkFolder(path, destination, rules.rbRecursive, rules.rsCopyType, rules.rbClearArchive,
                       rules.rbDeleteCopy, rules.rbOverwriteReadOnly, subFolder.IsLink());
        }
    }
    panel_.SetCaption(PanelLabel::lblfsoStatus, L"");
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
    ++state_.FolderErrors;
    log_.WriteLog(failure.LogText() + kWhile + action + kFolder + PathLine(folder), false);
}

void FolderWalk::ClearFsoStatus() {
    if (!panel_.Caption(PanelLabel::lblfsoStatus).empty()) {
        panel_.SetCaption(PanelLabel::lblfsoStatus, L"");
    }
}

}  // namespace ambrio
