#include "engine/KnownFolder.h"

#include <utility>

namespace ambrio {

KnownFolder::KnownFolder(FileSystem& fileSystem, std::wstring path, Asked asked)
    : fileSystem_(fileSystem), path_(std::move(path)), asked_(asked) {}

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

std::unique_ptr<FolderReader> KnownFolder::GetListing() const {
    asked_ = Asked::Path;
    if (notListed_) {
        throw RuntimeError(*notListed_);
    }
    return listing_ ? std::move(listing_) : fileSystem_.GetFolder(path_);
}

void KnownFolder::CloseListing() const {
    asked_ = Asked::Path;
    listing_.reset();
}

const std::optional<FileIdentity>& KnownFolder::Identity() const {
    if (!wasAsked_) {
        try {
            Ask();
        } catch (const RuntimeError&) {
            return identity_;  // the spelling must do
        }
    }
    return identity_;
}

void KnownFolder::Ask() const {
    if (std::exchange(asked_, Asked::Path) == Asked::Listing) {
        try {
            listing_ = fileSystem_.GetFolder(path_);
        } catch (const RuntimeError& failure) {
            notListed_ = failure;
            if (failure.Number() == ErrorNumber::PathNotFound) {
                throw;
            }
        }
    }
    wasAsked_ = true;
    identity_ = listing_ ? listing_->Identity() : fileSystem_.IdentityOf(path_);
}

}  // namespace ambrio
