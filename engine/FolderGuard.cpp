#include "engine/FolderGuard.h"

#include "engine/KnownFolder.h"
#include "engine/WalkedFolder.h"
#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

// "My Music" in the documents folder and its like: they deny listing to everyone and lead to what
// is elsewhere anyway.
bool IsCompatibilityJunction(const FileEntry& folder) {
    constexpr FileAttributes kBits = kAttributeHidden | kAttributeSystem;
    return folder.IsLink() && folder.IsMountPoint && (folder.Attributes & kBits) == kBits;
}

bool LeadsBack(const WalkedFolder& link) {
    link.Source().RequireIdentity();
    for (const WalkedFolder* step = link.Parent(); step != nullptr; step = step->Parent()) {
        if (step->Source().Is(link.Source()) || step->Destination().Is(link.Source())) {
            return true;
        }
    }
    return false;
}

bool IsSetsDestination(const WalkedFolder& subfolder) {
    const KnownFolder& destination = subfolder.Root().Destination();
    return !destination.IsElsewhereThan(subfolder.VolumeRoot().Source()) &&
           destination.Is(subfolder.Source());
}

// A Set that copies "\Data\Sub" to "\Data" would copy "\Data\Sub\Sub" over it. Only the Set's own
// source folder need be looked for, as the walk comes by it before any folder below.
bool IsSetsSource(const WalkedFolder& root, const KnownFolder& destination) {
    return !root.Source().IsElsewhereThan(root.Destination()) && root.Source().Is(destination);
}

}  // namespace

void RequireFollowable(FileSystem& fileSystem, const std::wstring& folder) {
    if (!fileSystem.MayFollow(folder)) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

bool FolderGuard::MayEnter(const WalkedFolder& subfolder, const FileEntry& entry) const {
    if (IsCompatibilityJunction(entry)) {
        return false;
    }
    if (entry.IsLink()) {
        RequireFollowable(fileSystem_, subfolder.Source().Path());
    }
    if (IsSetsSource(subfolder.Root(), subfolder.Destination())) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    return entry.IsLink() ? !LeadsBack(subfolder) : !IsSetsDestination(subfolder);
}

}  // namespace ambrio
