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
    steps.push_back({KnownFolder(guard.fileSystem_, rsSourceDir),
                     KnownFolder(guard.fileSystem_, rsDestnDir), volumeStep});
}

FolderGuard::Level::~Level() {
    guard_.steps_.pop_back();
}

bool FolderGuard::MayEnter(const FileEntry& subfolder, const std::wstring& path,
                           const std::wstring& destination) const {
    if (IsCompatibilityJunction(subfolder)) {
        return false;
    }
    if (IsSource(KnownFolder(fileSystem_, destination))) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    const KnownFolder folder(fileSystem_, path);
    return subfolder.IsLink() ? !LeadsBack(folder) : !IsDestination(folder);
}

bool FolderGuard::LeadsBack(const KnownFolder& link) const {
    link.RequireIdentity();
    return std::any_of(steps_.begin(), steps_.end(), [&](const Step& step) {
        return step.Source.Is(link) || step.Destination.Is(link);
    });
}

bool FolderGuard::IsDestination(const KnownFolder& subfolder) const {
    const KnownFolder& destination = steps_.front().Destination;
    return !destination.IsElsewhereThan(steps_[steps_.back().VolumeStep].Source) &&
           destination.Is(subfolder);
}

// A Set that copies "\Data\Sub" to "\Data" would copy "\Data\Sub\Sub" over it. Only the Set's own
// source folder need be looked for, as the walk comes by it before any folder below.
bool FolderGuard::IsSource(const KnownFolder& destination) const {
    const Step& root = steps_.front();
    return !root.Source.IsElsewhereThan(root.Destination) && root.Source.Is(destination);
}

}  // namespace ambrio
