#include "engine/FolderGuard.h"

#include <algorithm>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

// "My Music" in the documents folder and its like: they deny listing to everyone and lead to what
// is elsewhere anyway.
bool IsCompatibilityJunction(const FileEntry& folder) {
    constexpr FileAttributes kBits = kAttributeHidden | kAttributeSystem;
    return folder.IsLink() && folder.IsMountPoint && (folder.Attributes & kBits) == kBits;
}

}  // namespace

FolderGuard::Level::Level(FolderGuard& guard, const std::wstring& rsSourceDir,
                          const std::wstring& rsDestnDir, bool isLink)
    : guard_(guard) {
    std::vector<Step>& steps = guard.steps_;
    const std::size_t volumeStep = isLink || steps.empty() ? steps.size() : steps.back().VolumeStep;
    steps.push_back({{&rsSourceDir, false, {}}, {&rsDestnDir, false, {}}, volumeStep});
}

FolderGuard::Level::~Level() {
    guard_.steps_.pop_back();
}

const std::optional<FolderIdentity>& FolderGuard::IdentityOf(Folder& folder) {
    if (!folder.WasAsked) {
        folder.Identity = fileSystem_.IdentityOf(*folder.Path);
        folder.WasAsked = true;
    }
    return folder.Identity;
}

bool FolderGuard::MayEnter(const FileEntry& subfolder, const std::wstring& path,
                           const std::wstring& destination) {
    if (IsCompatibilityJunction(subfolder)) {
        return false;
    }
    if (IsSource(destination)) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    return subfolder.IsLink() ? !LeadsBack(path) : !IsDestination(path);
}

bool FolderGuard::LeadsBack(const std::wstring& path) {
    const std::optional<FolderIdentity> target = fileSystem_.IdentityOf(path);
    if (!target) {
        static_cast<void>(fileSystem_.GetFolder(path));  // a broken link fails with its own reason
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    return std::any_of(steps_.begin(), steps_.end(), [&](Step& step) {
        return IdentityOf(step.Source) == target || IdentityOf(step.Destination) == target;
    });
}

bool FolderGuard::IsDestination(const std::wstring& path) {
    const auto& volume = IdentityOf(steps_[steps_.back().VolumeStep].Source);
    const auto& destination = IdentityOf(steps_.front().Destination);
    const bool isElsewhere = volume && destination && volume->Volume != destination->Volume;
    return !isElsewhere && IsSame(steps_.front().Destination, path);
}

// A Set that copies "\Data\Sub" to "\Data" would copy "\Data\Sub\Sub" over it. Only the Set's own
// source folder need be looked for, as the walk comes by it before any folder below.
bool FolderGuard::IsSource(const std::wstring& destination) {
    const auto& source = IdentityOf(steps_.front().Source);
    const auto& root = IdentityOf(steps_.front().Destination);
    const bool isElsewhere = source && root && source->Volume != root->Volume;
    return !isElsewhere && IsSame(steps_.front().Source, destination);
}

bool FolderGuard::IsSame(Folder& known, const std::wstring& path) {
    const auto& identity = IdentityOf(known);
    const auto folder = identity ? fileSystem_.IdentityOf(path) : std::nullopt;
    return folder ? folder == identity
                  : fileSystem_.FoldedName(path) == fileSystem_.FoldedName(*known.Path);
}

}  // namespace ambrio
