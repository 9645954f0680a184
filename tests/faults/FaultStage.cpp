#include "tests/faults/FaultStage.h"

#include <algorithm>
#include <stdexcept>

#include "platform/TemporaryName.h"
#include "tests/faults/FaultScene.h"

namespace ambrio {
namespace {

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
    return Stage::TestCopyToRemove;
}

Stage StageOfDeletion(const std::wstring& path) {
    if (path == EngineBench::LogFile()) {
        return Stage::DeleteOldLog;
    }
    return HasCopyToRemove(path) ? Stage::RemoveCopy : Stage::RemoveLeftover;
}

}  // namespace

FaultPlan PlanOf(const StageFault& fault) {
    return [fault, calls = 0](Stage stage,
                              const std::wstring& path) mutable -> std::optional<ErrorNumber> {
        if (stage != fault.At || path != fault.Path || calls++ != fault.CallsBefore) {
            return std::nullopt;
        }
        return fault.Number;
    };
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
        case FileOperation::FindFile:
            return Stage::ReadCopy;
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
        case FileOperation::Flush:
            return Stage::FlushLog;
        case FileOperation::IsWritableFolder:
            return Stage::TryLogFolder;
        case FileOperation::MayFollow:
            return isSource ? Stage::TestSourceLink : Stage::TestDestinationLink;
    }
    throw std::logic_error("an operation without a stage");
}

Stage StageFinder::StageOfRead(const std::wstring& path) const {
    if (IsTemporaryName(path.substr(path.find_last_of(L'\\') + 1))) {
        return Stage::LookForLeftoversFile;
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
