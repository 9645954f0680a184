#include "tests/support/MemoryPreparedCopy.h"

#include <utility>

#include "platform/RuntimeError.h"

namespace ambrio {

MemoryPreparedCopy::MemoryPreparedCopy(MemoryFileSystem& files, ExpectedCopy what,
                                       MemoryNode::Pointer folder, MemoryNode::Pointer copy)
    : files_(files),
      what_(std::move(what)),
      folder_(std::move(folder)),
      copy_(std::move(copy)),
      temporaryName_(copy_->Name),
      sourceLooks_(LooksOf(what_.Source)),
      destinationLooks_(what_.SeemsNew ? Looks() : LooksOf(what_.Destination)) {}

MemoryPreparedCopy::~MemoryPreparedCopy() {
    const MemoryVolume& volume = folder_->Volume;
    if (!isFinished_ && volume.Present && volume.Ready && folder_->Child(temporaryName_) == copy_) {
        folder_->Remove(copy_);
    }
}

MemoryPreparedCopy::Looks MemoryPreparedCopy::LooksOf(const std::wstring& path) const {
    try {
        const MemoryNode& node = files_.Node(path);
        return {&node, node.Attributes, node.DateLastModified, node.Size()};
    } catch (const RuntimeError&) {
        return {};
    }
}

bool MemoryPreparedCopy::Finish(bool overwrite) {
    const Looks destination = LooksOf(what_.Destination);
    if (LooksOf(what_.Source) != sourceLooks_ || destination != destinationLooks_ ||
        folder_->Child(temporaryName_) != copy_ || !folder_->Volume.Present ||
        !folder_->Volume.Ready) {
        return false;
    }
    if (destination.Node != nullptr &&
        (!overwrite || destination.Node->Locked || destination.Node->OpenStreams > 0)) {
        return false;
    }
    if (files_.BeforeRename) {
        files_.BeforeRename();
    }
    folder_->Rename(copy_, what_.Destination.substr(what_.Destination.find_last_of(L'\\') + 1));
    isFinished_ = true;
    return true;
}

}  // namespace ambrio
