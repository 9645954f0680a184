#include "engine/FileCopier.h"

#include "engine/EngineTexts.h"
#include "settings/SettingKeys.h"

namespace ambrio {
namespace {

// True for as long as the platform is at work on the file, whatever ends it.
class CopyInProgress {
  public:
    explicit CopyInProgress(RunState& state) : state_(state) { state_.CopyInProgress = true; }
    ~CopyInProgress() { state_.CopyInProgress = false; }
    CopyInProgress(const CopyInProgress&) = delete;
    CopyInProgress& operator=(const CopyInProgress&) = delete;

  private:
    RunState& state_;
};

bool IsReadOnly(const FileEntry& entry) {
    return (entry.Attributes & kAttributeReadOnly) != 0;
}

}  // namespace

FileCopier::FileCopier(FileSystem& fileSystem, RunLog& log, StatusPanel& panel, RunHost& host,
                       RunState& state)
    : fileSystem_(fileSystem), log_(log), panel_(panel), host_(host), state_(state) {}

void FileCopier::CopyFile(const SourceFile& rfoSourceFile, DestinationListing& destination,
                          const std::wstring& rsCopyType, bool rbClearArchive, bool rbDeleteCopy,
                          bool rbOverwriteReadOnly) {
    const Task task{rfoSourceFile, destination, destination.PathOf(rfoSourceFile.Name),
                    CopyRuleOf(rsCopyType), rbOverwriteReadOnly};
    bool isToBeRemoved = false;
    bool isToBeCopied = false;
    try {
        const FileEntry source = fileSystem_.GetFile(rfoSourceFile.Path);
        isToBeRemoved =
            rbDeleteCopy && !task.Rule.Qualifies(source.Attributes) && HasCopyToRemove(task);
        if (!isToBeRemoved) {
            isToBeCopied = IsToBeCopied(task, source);
        }
    } catch (const RuntimeError& failure) {
        InterruptRun(failure, task);
        return;
    }
    if (isToBeRemoved) {
        RemoveCopy(task);
        // The removal took its time, so the file is read again; a failure goes to the caller.
        isToBeCopied = IsToBeCopied(task, fileSystem_.GetFile(rfoSourceFile.Path));
    }
    ++state_.FilesChecked;
    panel_.SetCaption(PanelLabel::lblChecked, std::to_wstring(state_.FilesChecked));
    if (isToBeCopied) {
        Copy(task, rbClearArchive && rsCopyType == kCopyTypeArchiveBit);
    } else {
        StopCopyDisplay();
    }
}

// What would go, were source and destination one folder, is the user's only file.
bool FileCopier::HasCopyToRemove(const Task& task) {
    return task.Destination.MayHold(task.Source.Name) &&
           fileSystem_.FileExists(task.DestinationPath) && !task.Destination.IsSourceItself();
}

bool FileCopier::IsToBeCopied(const Task& task, const FileEntry& source) {
    if (!task.Rule.Qualifies(source.Attributes)) {
        return false;
    }
    const auto isOlder = [&](const FileEntry& copy) {
        return source.DateLastModified > copy.DateLastModified;
    };
    const auto losesReadOnly = [&](const FileEntry& copy) {
        return task.OverwritesReadOnly && IsReadOnly(copy);
    };
    std::optional<FileEntry> copy = task.Destination.Listed(task.Source.Name);
    if (!copy || isOlder(*copy) || losesReadOnly(*copy)) {
        copy = task.Destination.Ask(task.Source.Name);
    }
    if (!copy) {
        return true;
    }
    // Wanted: the copy loses its read-only bit also when it is new enough and not copied to.
    if (losesReadOnly(*copy)) {
        fileSystem_.SetAttributes(task.DestinationPath, copy->Attributes & ~kAttributeReadOnly);
    }
    return isOlder(*copy);
}

void FileCopier::RemoveCopy(const Task& task) {
    panel_.SetCaption(PanelLabel::lblFile, task.Source.Name + kRemovingCopy);
    std::optional<RuntimeError> failure;
    try {
        fileSystem_.DeleteFile(task.DestinationPath, true);
    } catch (const RuntimeError& error) {
        failure = error;
        ++state_.RemoveErrors;
    }
    task.Destination.Forget(task.Source.Name);
    ++state_.CopiesRemoved;  // attempts; the failed ones are subtracted where they are shown
    panel_.SetCaption(PanelLabel::lblRemoved,
                      std::to_wstring(state_.CopiesRemoved - state_.RemoveErrors));
    if (failure) {
        log_.WriteLog(failure->LogText() + kWhileRemoving + PathLine(task.DestinationPath), false);
    }
}

void FileCopier::Copy(const Task& task, bool clearsArchive) {
    StartCopyDisplay();
    panel_.SetCaption(PanelLabel::lblFile, task.Source.Name + kCopying);
    ++state_.FilesCopied;  // attempts, as above; at once, so that no failure gets ahead of it
    {
        const CopyInProgress inProgress(state_);
        CopyContent(task);
        // Wanted: the bit is cleared after a failed copy too.
        if (clearsArchive) {
            ClearArchiveBit(task);
        }
    }
    panel_.SetCaption(PanelLabel::lblFile, task.Source.Name + kDone);
    panel_.SetCaption(PanelLabel::lblcopied,
                      std::to_wstring(state_.FilesCopied - state_.CopyErrors));
}

void FileCopier::CopyContent(const Task& task) {
    try {
        // A long copy must not make the windows look dead.
        fileSystem_.CopyFile(task.Source.Path, task.DestinationPath, true,
                             [this] { host_.DoEvents(); });
    } catch (const RuntimeError& failure) {
        ++state_.CopyErrors;
        log_.WriteLog(failure.LogText() + kWhileCopying + PathLine(task.Source.Path) +
                          ToPathLine(task.DestinationPath),
                      false);
    }
}

void FileCopier::ClearArchiveBit(const Task& task) {
    try {
        // Read again, as the copy may have taken long and the other bits are to stay.
        const FileAttributes attributes = fileSystem_.GetFile(task.Source.Path).Attributes;
        fileSystem_.SetAttributes(task.Source.Path, attributes & ~kAttributeArchive);
    } catch (const RuntimeError& failure) {
        log_.WriteLog(failure.LogText() + kWhileClearingArchiveBit + PathLine(task.Source.Path),
                      false);
    }
}

void FileCopier::InterruptRun(const RuntimeError& failure, const Task& task) {
    const std::wstring text = failure.LogText() + kInCopyFile + PathLine(task.Source.Path) +
                              ToPathLine(task.DestinationPath);
    state_.FatalErrorText = text;
    state_.Interrupted = true;
    log_.WriteLog(text, false);
}

void FileCopier::StartCopyDisplay() {
    if (!AnimationPlaying_) {
        panel_.PlayClip();
        AnimationPlaying_ = true;
        panel_.ShowCopyFrame(true);
    }
    panel_.MatchCopyFrameColour();
    host_.DoEvents();
}

void FileCopier::StopCopyDisplay() {
    if (AnimationPlaying_) {
        panel_.StopClip();
        AnimationPlaying_ = false;
        panel_.ShowCopyFrame(false);
    }
}

}  // namespace ambrio
