#include "engine/KnownFolder.h"

#include <utility>

#include "platform/RuntimeError.h"

namespace ambrio {

KnownFolder::KnownFolder(FileSystem& fileSystem, std::wstring path)
    : fileSystem_(fileSystem), path_(std::move(path)) {}

bool KnownFolder::Is(const KnownFolder& other) const {
    const auto& one = Identity();
    // The other is only asked when there is something to compare with.
    if (one && other.Identity()) {
        return one == other.Identity();
    }
    return fileSystem_.FoldedName(path_) == fileSystem_.FoldedName(other.path_);
}

bool KnownFolder::IsElsewhereThan(const KnownFolder& other) const {
    return Identity() && other.Identity() && !Identity()->MayShareVolumeWith(*other.Identity());
}

void KnownFolder::RequireIdentity() const {
    if (!identity_) {
        identity_ = fileSystem_.IdentityOf(path_);
        wasAsked_ = true;
    }
    // Nor does a path do: a link that a server follows by itself leads to ever longer ones.
    if (!identity_ || identity_->IsByPath) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

const std::optional<FileIdentity>& KnownFolder::Identity() const {
    if (!wasAsked_) {
        wasAsked_ = true;
        try {
            identity_ = fileSystem_.IdentityOf(path_);
        } catch (const RuntimeError&) {
            return identity_;  // the spelling must do
        }
    }
    return identity_;
}

}  // namespace ambrio
