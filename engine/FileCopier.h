#pragma once

#include <string>

#include "engine/CopyRule.h"
#include "engine/DestinationListing.h"
#include "engine/RunContext.h"
#include "platform/RuntimeError.h"

namespace ambrio {

// One file that a source folder's listing yields.
struct SourceFile {
    std::wstring Name;
    std::wstring Path;
};

// Decides what becomes of one source file and its copy, and does it.
class FileCopier {
  public:
    explicit FileCopier(const RunContext& run) : run_(run) {}

    // Removes, makes or leaves the copy in the destination folder, which exists. A failed removal,
    // copy or archive bit is logged and counted and the file gone on with. A failure while deciding
    // is logged, kept in FatalErrorText and interrupts the run. After a removal was tried, reading
    // the file again can fail, and that comes out as RuntimeError; so does a LogFailure anywhere.
    void CopyFile(const SourceFile& rfoSourceFile, DestinationListing& destination,
                  const std::wstring& rsCopyType, bool rbClearArchive, bool rbDeleteCopy,
                  bool rbOverwriteReadOnly);

  private:
    // The file in hand and the rules for it.
    struct Task {
        const SourceFile& Source;
        DestinationListing& Destination;
        std::wstring DestinationPath;
        CopyRule Rule;
        bool OverwritesReadOnly;
    };

    bool HasCopyToRemove(const Task& task);
    bool IsToBeCopied(const Task& task, const FileEntry& source);
    void RemoveCopy(const Task& task);
    void Copy(const Task& task, bool clearsArchive);
    void CopyContent(const Task& task);
    void ClearArchiveBit(const Task& task);
    void InterruptRun(const RuntimeError& failure, const Task& task);
    void StartCopyDisplay();
    void StopCopyDisplay();

    const RunContext run_;
    bool AnimationPlaying_ = false;
};

}  // namespace ambrio
