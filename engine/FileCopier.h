#pragma once

#include <string>

#include "engine/DestinationListing.h"
#include "engine/RunContext.h"
#include "engine/WalkedSet.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace ambrio {

// Decides what becomes of one source file and its copy, and does it.
class FileCopier {
  public:
    enum class Outcome {
        OnlyChecked,  // nothing was done about the file
        Handled,      // a copy was made or removed, or that was tried, or the run is to stop
    };

    explicit FileCopier(const RunContext& run) : run_(run) {}

    // Removes, makes or leaves the copy of one file of the folder that is being walked, in its
    // destination folder, which exists. A failed removal,
    // copy or archive bit is logged and counted and the file gone on with. A failure while deciding
    // is logged, kept in FatalErrorText and interrupts the run. After a removal was tried, reading
    // the file again can fail, and that comes out as RuntimeError; so does a LogFailure anywhere.
    Outcome CopyFile(const std::wstring& name, DestinationListing& destination);

  private:
    // The file in hand and where its copy is or goes.
    struct File {
        const std::wstring& Name;
        std::wstring Path;
        DestinationListing& Copies;
        // The destination has only one place for this file and another one, whose copy lies there.
        bool IsWithoutPlace;

        [[nodiscard]] const WalkedSet& Set() const { return Copies.Folder().Set(); }
        [[nodiscard]] std::wstring CopyPath() const { return Copies.PathOf(Name); }
    };

    // Two files whose names differ in nothing but their case, and a destination that does not keep
    // them apart.
    bool IsWithoutPlace(const std::wstring& name, const DestinationListing& copies);
    bool HasCopyToRemove(const File& file);
    bool IsToBeCopied(const File& file, const FileEntry& source);
    void RemoveCopy(const File& file);
    void Copy(const File& file);
    void CopyContent(const File& file, bool seemsNew);
    void Replace(const File& file, bool overwrite);
    bool IsNameTaken(const File& file);
    void ClearArchiveBit(const File& file);
    void InterruptRun(const RuntimeError& failure, const File& file);
    void StartCopyDisplay();
    void StopCopyDisplay();

    const RunContext run_;
    bool AnimationPlaying_ = false;
};

}  // namespace ambrio
