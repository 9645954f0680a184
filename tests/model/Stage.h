#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/RuntimeError.h"
#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

// What a run is about when it calls the file system or the settings store. The order is that of the
// table which the fault matrix prints.
enum class Stage {
    SaveLastRun,
    TryLogFolder,
    TestOldLog,
    DeleteOldLog,
    OpenLog,
    WriteLogLine,
    FlushLog,
    TestSourceFolder,
    TestSourceLink,  // whose it is
    ListSource,
    WalkSource,
    TestDestinationFolder,
    MakeDestinationFolder,
    TestDestinationLink,
    ListDestination,
    WalkDestination,
    LookForLeftoversFile,
    RemoveLeftover,
    TellFoldersApart,
    ReadSource,
    TestCopyToRemove,
    RemoveCopy,
    ReadSourceAgain,
    TestCopyToReplace,  // with ReadCopy one call, which can overlook the copy or fail
    ReadCopy,
    MakeCopyWritable,
    CopyFile,
    ReadSourceForArchiveBit,
    ClearArchiveBit,
    FindSecondSaver,
    End,  // not a stage: one behind the last
};

[[nodiscard]] const char* NameOf(Stage stage);

// The operation that a run calls at that stage; nothing where it is none of the file system's.
[[nodiscard]] std::optional<FileOperation> OperationOf(Stage stage);

// Asked at each call of a stage, in the order of the run, with the path (or the setting's key) that
// the call is about: the number with which it fails, or nothing when it works. An operation that
// answers yes or no answers no when it fails, whatever the number.
using FaultPlan = std::function<std::optional<ErrorNumber>(Stage stage, const std::wstring& path)>;

}  // namespace ambrio
