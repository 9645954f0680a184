#include "engine/FileCopier.h"

#include "engine/EngineTexts.h"
#include "settings/SettingKeys.h"

namespace ambrio {
namespace {

// True for as long as the platform is at work on the file, whatever ends it.
class CopyInProgress {
  public:
    explicit CopyInProgress(RunSignals& signals) : signals_(signals) {
        signals_.CopyInProgress = true;
    }
    ~CopyInProgress() { signals_.CopyInProgress = false; }
    CopyInProgress(const CopyInProgress&) = delete;
    CopyInProgress& operator=(const CopyInProgress&) = delete;

  private:
    RunSignals& signals_;
};

bool IsReadOnly(const FileEntry& entry) {
    return (entry.Attributes & kAttributeReadOnly) != 0;
}

}  // namespace

void FileCopier::CopyFile(const SourceFile& rfoSourceFile, DestinationListing& destination,
                          const std::wstring& rsCopyType, bool rbClearArchive, bool rbDeleteCopy,
                          bool rbOverwriteReadOnly) {
    const Task task{rfoSourceFile, destination, destination.PathOf(rfoSourceFile.Name),
                    CopyRuleOf(rsCopyType), rbOverwriteReadOnly};
    bool isToBeRemoved = false;
    bool isToBeCopied = false;
    try {
        const FileEntry source = run_.Files.GetFile(rfoSourceFile.Path);
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
        isToBeCopied = IsToBeCopied(task, run_.Files.GetFile(rfoSourceFile.Path));
    }
    ++run_.State.FilesChecked;
    run_.Panel.SetCaption(PanelLabel::lblChecked, std::to_wstring(run_.State.FilesChecked));
    if (isToBeCopied) {
        Copy(task, rbClearArchive && rsCopyType == kCopyTypeArchiveBit);
    } else {
        StopCopyDisplay();
    }
}

// What would go, were source and destination one folder, is the user's only file.
bool FileCopier::HasCopyToRemove(const Task& task) {
    return task.Destination.MayHold(task.Source.Name) &&
           run_.Files.FileExists(task.DestinationPath) && !task.Destination.IsSourceItself();
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
        run_.Files.SetAttributes(task.DestinationPath, copy->Attributes & ~kAttributeReadOnly);
    }
    return isOlder(*copy);
}

void FileCopier::RemoveCopy(const Task& task) {
    run_.Panel.SetCaption(PanelLabel::lblFile, task.Source.Name + kRemovingCopy);
    std::optional<RuntimeError> failure;
    try {
        run_.Files.DeleteFile(task.DestinationPath, true);
    } catch (const RuntimeError& error) {
        failure = error;
        ++run_.State.RemoveErrors;
    }
    task.Destination.Forget(task.Source.Name);
    ++run_.State.CopiesRemoved;  // attempts; the failed ones are subtracted where they are shown
    run_.Panel.SetCaption(PanelLabel::lblRemoved,
                          std::to_wstring(run_.State.CopiesRemoved - run_.State.RemoveErrors));
    if (failure) {
        run_.Log.WriteLog(failure->LogText() + kWhileRemoving + PathLine(task.DestinationPath),
                          false);
    }
}

void FileCopier::Copy(const Task& task, bool clearsArchive) {
    StartCopyDisplay();
    run_.Panel.SetCaption(PanelLabel::lblFile, task.Source.Name + kCopying);
    task.Destination.Note(task.Source.Name);
    ++run_.State.FilesCopied;  // attempts, as above; at once, so that no failure gets ahead of it
    {
        const CopyInProgress inProgress(run_.Signals);
        CopyContent(task);
        // Wanted: the bit is cleared after a failed copy too.
        if (clearsArchive) {
            ClearArchiveBit(task);
        }
    }
    run_.Panel.SetCaption(PanelLabel::lblFile, task.Source.Name + kDone);
    run_.Panel.SetCaption(PanelLabel::lblcopied,
                          std::to_wstring(run_.State.FilesCopied - run_.State.CopyErrors));
}

void FileCopier::CopyContent(const Task& task) {
    try {
        // A long copy must not make the windows look dead.
        run_.Files.CopyFile(task.Source.Path, task.DestinationPath, true,
                            [this] { run_.Host.DoEvents(); });
    } catch (const RuntimeError& failure) {
        ++run_.State.CopyErrors;
        run_.Log.WriteLog(failure.LogText() + kWhileCopying + PathLine(task.Source.Path) +
                              ToPathLine(task.DestinationPath),
                          false);
    }
}

void FileCopier::ClearArchiveBit(const Task& task) {
    try {
        // Read again, as the copy may have taken long and the other bits are to stay.
        const FileAttributes attributes = run_.Files.GetFile(task.Source.Path).Attributes;
        run_.Files.SetAttributes(task.Source.Path, attributes & ~kAttributeArchive);
    } catch (const RuntimeError& failure) {
        run_.Log.WriteLog(failure.LogText() + kWhileClearingArchiveBit + PathLine(task.Source.Path),
                          false);
    }
}

void FileCopier::InterruptRun(const RuntimeError& failure, const Task& task) {
    const std::wstring text = failure.LogText() + kInCopyFile + PathLine(task.Source.Path) +
                              ToPathLine(task.DestinationPath);
    run_.State.FatalErrorText = text;
    run_.Signals.Interrupted = true;
    run_.Log.WriteLog(text, false);
}

void FileCopier::StartCopyDisplay() {
    if (!AnimationPlaying_) {
        run_.Panel.PlayClip();
        AnimationPlaying_ = true;
        run_.Panel.ShowCopyFrame(true);
    }
    run_.Panel.MatchCopyFrameColour();
    run_.Host.DoEvents();
}

void FileCopier::StopCopyDisplay() {
    if (AnimationPlaying_) {
        run_.Panel.StopClip();
        AnimationPlaying_ = false;
        run_.Panel.ShowCopyFrame(false);
    }
}

}  // namespace ambrio
