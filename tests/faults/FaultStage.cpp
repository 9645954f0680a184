#include "tests/faults/FaultStage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>

#include "tests/faults/FaultScene.h"

namespace ambrio {
namespace {

constexpr std::array<const char*, static_cast<std::size_t>(Stage::End)> kNames = {
    "save the time of the run",
    "try the log's folder",
    "look for the old log",
    "remove the old log",
    "open the log",
    "write a line of the log",
    "look for the source folder",
    "list the source folder",
    "walk the source listing",
    "look for the destination folder",
    "make the destination folder",
    "list the destination folder",
    "walk the destination listing",
    "remove a leftover",
    "tell folders apart",
    "read a source file",
    "look for a copy to remove",
    "remove a copy",
    "read the source after a removal",
    "look for a copy to replace",
    "read a copy",
    "make a copy writable",
    "copy a file",
    "read the source for its archive bit",
    "clear the archive bit",
    "look for the second saver",
};

bool IsInSource(const std::wstring& path) {
    return path.starts_with(SourceFolder(L""));
}

bool HasCopyToRemove(const std::wstring& copy) {
    return std::any_of(kPlannedFiles.begin(), kPlannedFiles.end(), [&](const PlannedFile& file) {
        return file.Copy() == copy &&
               (file.What == Plan::RemoveCopy || file.What == Plan::RemoveReadOnlyCopy);
    });
}

Stage StageOfQuestion(const std::wstring& path) {
    if (path == EngineBench::LogFile()) {
        return Stage::TestOldLog;
    }
    if (path.ends_with(L".scr")) {
        return Stage::FindSecondSaver;
    }
    return HasCopyToRemove(path) ? Stage::TestCopyToRemove : Stage::TestCopyToReplace;
}

Stage StageOfDeletion(const std::wstring& path) {
    if (path == EngineBench::LogFile()) {
        return Stage::DeleteOldLog;
    }
    return HasCopyToRemove(path) ? Stage::RemoveCopy : Stage::RemoveLeftover;
}

}  // namespace

const char* NameOf(Stage stage) {
    return kNames.at(static_cast<std::size_t>(stage));
}

Stage StageFinder::StageOf(const FileCall& call) {
    const bool isSource = IsInSource(call.Path);
    switch (call.Operation) {
        case FileOperation::FileExists:
            return StageOfQuestion(call.Path);
        case FileOperation::FolderExists:
            return isSource ? Stage::TestSourceFolder : Stage::TestDestinationFolder;
        case FileOperation::GetFile:
            return StageOfRead(call.Path);
        case FileOperation::GetFolder:
            return isSource ? Stage::ListSource : Stage::ListDestination;
        case FileOperation::Next:
            return isSource ? Stage::WalkSource : Stage::WalkDestination;
        case FileOperation::IdentityOf:
            return Stage::TellFoldersApart;
        case FileOperation::CreateFolder:
            return Stage::MakeDestinationFolder;
        case FileOperation::SetAttributes:
            return isSource ? Stage::ClearArchiveBit : Stage::MakeCopyWritable;
        case FileOperation::DeleteFile:
            removed_ = call.Path;
            return StageOfDeletion(call.Path);
        case FileOperation::CopyFile:
            copied_ = call.Path;
            return Stage::CopyFile;
        case FileOperation::OpenForAppending:
            return Stage::OpenLog;
        case FileOperation::WriteLine:
            return Stage::WriteLogLine;
        case FileOperation::IsWritableFolder:
            return Stage::TryLogFolder;
    }
    throw std::logic_error("an operation without a stage");
}

Stage StageFinder::StageOfRead(const std::wstring& path) const {
    if (!IsInSource(path)) {
        return Stage::ReadCopy;
    }
    if (path == copied_) {
        return Stage::ReadSourceForArchiveBit;
    }
    const bool isAgain = std::any_of(
        kPlannedFiles.begin(), kPlannedFiles.end(),
        [&](const PlannedFile& file) { return file.Source() == path && file.Copy() == removed_; });
    return isAgain ? Stage::ReadSourceAgain : Stage::ReadSource;
}

}  // namespace ambrio
