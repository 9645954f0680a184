#include "tests/support/FailingFileSystem.h"

#include <utility>

namespace ambrio {

FailingFileSystem::FailingFileSystem(FileSystem& target, FileFault fault)
    : ObservedFileSystem(target), fault_(std::move(fault)) {}

void FailingFileSystem::Arm(FileFault fault) {
    fault_ = std::move(fault);
    operations_ = 0;
    fired_.reset();
}

bool FailingFileSystem::Before(const FileCall& call) {
    if ((fault_.Kind && *fault_.Kind != call.Operation) ||
        (fault_.Matches && !fault_.Matches(call))) {
        return true;
    }
    ++operations_;
    if (operations_ < fault_.At || (operations_ > fault_.At && !fault_.AndAllAfter)) {
        return true;
    }
    if (!fired_) {
        fired_ = call;
    }
    switch (call.Operation) {
        case FileOperation::IdentityOf:
        case FileOperation::FileExists:
        case FileOperation::FolderExists:
        case FileOperation::IsWritableFolder:
        case FileOperation::MayFollow:
            if (!fault_.QuestionsThrow) {
                return false;
            }
            break;
        default:
            break;
    }
    throw RuntimeError(fault_.Number);
}

}  // namespace ambrio
