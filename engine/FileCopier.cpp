#include "engine/FileCopier.h"

#include "engine/Counted.h"
#include "engine/EngineTexts.h"
#include "engine/SameFile.h"
#include "platform/DecimalText.h"

namespace ambrio {
namespace {

// Keeps a signal up for as long as it lives, whatever ends that.
class Raised {
  public:
    explicit Raised(bool& signal) : signal_(signal) { signal_ = true; }
    ~Raised() { signal_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    bool& signal_;
};

bool IsReadOnly(const FileEntry& entry) {
    return (entry.Attributes & kAttributeReadOnly) != 0;
}

}  // namespace

FileCopier::Outcome FileCopier::CopyFile(const std::wstring& name,
                                         DestinationListing& destination) {
    const File file{name, FileSystem::BuildPath(destination.Folder().Source().Path(), name),
                    destination, IsWithoutPlace(name, destination)};
    bool isToBeRemoved = false;
    bool isToBeCopied = false;
    try {
        const FileEntry source = run_.Files.GetFile(file.Path);
        isToBeRemoved = file.Set().Record.rbDeleteCopy && !source.IsOfAnotherUser &&
                        !file.Set().Rule.Qualifies(source.Attributes) && HasCopyToRemove(file);
        if (!isToBeRemoved) {
            isToBeCopied = IsToBeCopied(file, source);
        }
    } catch (const RuntimeError& failure) {
        InterruptRun(failure, file);
        return Outcome::Handled;
    }
    if (isToBeRemoved) {
        RemoveCopy(file);
        // The removal took its time, so the file is read again; a failure goes to the caller.
        isToBeCopied = IsToBeCopied(file, run_.Files.GetFile(file.Path));
    }
    ++run_.State.FilesChecked;
    run_.Panel.SetCaption(PanelLabel::lblChecked, DecimalText(run_.State.FilesChecked));
    if (isToBeCopied) {
        Copy(file);
    } else {
        StopCopyDisplay();
    }
    return isToBeCopied || isToBeRemoved ? Outcome::Handled : Outcome::OnlyChecked;
}

bool FileCopier::IsWithoutPlace(const std::wstring& name, const DestinationListing& copies) {
    const std::optional<std::wstring> other = copies.OtherSpelling(name);
    if (!other) {
        return false;
    }
    const std::wstring& source = copies.Folder().Source().Path();
    const bool areTwoFiles =
        AreOneFile(run_.Files, FileSystem::BuildPath(source, name),
                   FileSystem::BuildPath(source, *other)) == std::optional(false);
    return areTwoFiles && AreOneFile(run_.Files, copies.PathOf(name), copies.PathOf(*other)) ==
                              std::optional(true);
}

// What would go, were the copy the source file itself, is the user's only file. Asked for each file
// anew, as a folder may have been put in the place of another meanwhile.
bool FileCopier::HasCopyToRemove(const File& file) {
    return !file.IsWithoutPlace && file.Copies.MayHold(file.Name) &&
           run_.Files.FileExists(file.CopyPath()) &&
           !AreOneFile(run_.Files, file.Path, file.CopyPath())
                .value_or(file.Copies.IsSourceItself());
}

bool FileCopier::IsToBeCopied(const File& file, const FileEntry& source) {
    // Both fail: nothing must be missing without a word, whatever the link itself looks like.
    if (source.IsOfAnotherUser) {
        return true;
    }
    if (!file.Set().Rule.Qualifies(source.Attributes)) {
        return false;
    }
    if (file.IsWithoutPlace) {
        return true;
    }
    const auto isOlder = [&](const FileEntry& copy) {
        return source.DateLastModified > copy.DateLastModified;
    };
    const auto losesReadOnly = [&](const FileEntry& copy) {
        return file.Set().Record.rbOverwriteReadOnly && IsReadOnly(copy);
    };
    std::optional<FileEntry> copy = file.Copies.Listed(file.Name);
    if (!copy || isOlder(*copy) || losesReadOnly(*copy)) {
        copy = file.Copies.Ask(file.Name);
    }
    if (!copy) {
        return true;
    }
    // Wanted: the copy loses its read-only bit also when it is new enough and not copied to.
    if (losesReadOnly(*copy)) {
        run_.Files.SetAttributes(file.CopyPath(), copy->Attributes & ~kAttributeReadOnly);
    }
    return isOlder(*copy);
}

void FileCopier::RemoveCopy(const File& file) {
    run_.Panel.SetCaption(PanelLabel::lblFile, RemovingCopy(file.Name));
    {
        // Attempts; the failed ones are subtracted where they are shown.
        const Counted attempt(run_.State.CopiesRemoved);
        file.Copies.Forget(file.Name);
        try {
            run_.Files.DeleteFile(file.CopyPath(), true);
        } catch (const RuntimeError& failure) {
            const Counted error(run_.State.RemoveErrors);
            run_.Log.WriteLog(CopyNotRemoved(failure, file.CopyPath()), false);
        }
    }
    run_.Panel.SetCaption(PanelLabel::lblRemoved,
                          DecimalText(run_.State.CopiesRemoved - run_.State.RemoveErrors));
}

void FileCopier::Copy(const File& file) {
    StartCopyDisplay();
    run_.Panel.SetCaption(PanelLabel::lblFile, Copying(file.Name));
    const bool seemsNew = file.Copies.SeemsMissing(file.Name);
    if (!file.IsWithoutPlace) {
        file.Copies.Note(file.Name);
    }
    {
        const Counted attempt(run_.State.FilesCopied);  // as above
        {
            run_.Signals.CopiedFile = file.Name;
            const Raised inProgress(run_.Signals.CopyInProgress);
            CopyContent(file, seemsNew);
            // Wanted: the bit is cleared after a failed copy too.
            if (file.Set().ClearsArchiveBit) {
                ClearArchiveBit(file);
            }
        }
        run_.Panel.SetCaption(PanelLabel::lblFile, Done(file.Name));
    }
    run_.Panel.SetCaption(PanelLabel::lblcopied,
                          DecimalText(run_.State.FilesCopied - run_.State.CopyErrors));
}

void FileCopier::CopyContent(const File& file, bool seemsNew) {
    try {
        if (file.IsWithoutPlace) {
            throw RuntimeError(ErrorNumber::FileAlreadyExists);
        }
        Replace(file, !seemsNew);
    } catch (const RuntimeError& failure) {
        const Counted error(run_.State.CopyErrors);
        run_.Log.WriteLog(FileNotCopied(failure, file.Path, file.CopyPath()), false);
    }
}

// Where no copy is known none is asked for: to look for a name that is not there can take as long
// as to copy a small file. One that turns up after all is overwritten like any other.
void FileCopier::Replace(const File& file, bool overwrite) {
    // A long copy must not make the windows look dead.
    const Yield yield = [this] { run_.Host.DoEvents(); };
    if (!overwrite) {
        try {
            run_.Files.CopyFile(file.Path, file.CopyPath(), false, yield);
            return;
        } catch (const RuntimeError& failure) {
            if (failure.Number() != ErrorNumber::FileAlreadyExists || !IsNameTaken(file)) {
                throw;
            }
        }
    }
    run_.Files.CopyFile(file.Path, file.CopyPath(), true, yield);
}

bool FileCopier::IsNameTaken(const File& file) {
    return run_.Files.FileExists(file.CopyPath()) || run_.Files.FolderExists(file.CopyPath());
}

void FileCopier::ClearArchiveBit(const File& file) {
    try {
        // Read again, as the copy may have taken long and the other bits are to stay.
        const FileAttributes attributes = run_.Files.GetFile(file.Path).Attributes;
        run_.Files.SetAttributes(file.Path, attributes & ~kAttributeArchive);
    } catch (const RuntimeError& failure) {
        run_.Log.WriteLog(ArchiveBitNotCleared(failure, file.Path), false);
    }
}

void FileCopier::InterruptRun(const RuntimeError& failure, const File& file) {
    const std::wstring text = FileNotDecided(failure, file.Path, file.CopyPath());
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
