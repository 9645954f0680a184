#pragma once

#include <string>

#include "platform/RuntimeError.h"
#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

// What a run is about when it calls the file system or the settings store, for the run of a
// FaultScene. The order is that of the table which the test prints.
enum class Stage {
    SaveLastRun,
    TryLogFolder,
    TestOldLog,
    DeleteOldLog,
    OpenLog,
    WriteLogLine,
    TestSourceFolder,
    ListSource,
    WalkSource,
    TestDestinationFolder,
    MakeDestinationFolder,
    ListDestination,
    WalkDestination,
    RemoveLeftover,
    TellFoldersApart,
    ReadSource,
    TestCopyToRemove,
    RemoveCopy,
    ReadSourceAgain,
    TestCopyToReplace,
    ReadCopy,
    MakeCopyWritable,
    CopyFile,
    ReadSourceForArchiveBit,
    ClearArchiveBit,
    FindSecondSaver,
    End,  // not a stage: one behind the last
};

[[nodiscard]] const char* NameOf(Stage stage);

// The call that fails, and how.
struct StageFault {
    Stage At = Stage::End;
    ErrorNumber Number = ErrorNumber::PermissionDenied;
    std::wstring Path = {};  // what the call is about
    int CallsBefore = 0;     // calls of the same stage with the same path before it
    int Occurrence = 0;      // the how-manyth call of its stage it is, from 1

    // True when the run is there now.
    [[nodiscard]] bool Is(Stage stage, const std::wstring& path) const {
        return At == stage && Path == path;
    }
};

// Tells the stages of one run, call by call.
class StageFinder {
  public:
    // To be asked once for each call, in their order.
    Stage StageOf(const FileCall& call);

  private:
    [[nodiscard]] Stage StageOfRead(const std::wstring& path) const;

    std::wstring removed_;  // the copy that was removed last
    std::wstring copied_;   // the source that was copied last
};

}  // namespace ambrio
