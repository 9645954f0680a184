#include "engine/FolderGuard.h"

#include <algorithm>

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
    steps.push_back({{&rsSourceDir, false, {}}, {&rsDestnDir, false, {}}, volumeStep, false});
    if (isLink) {
        steps.back().IsUnidentifiedLink = !guard.IdentityOf(steps.back().Source);
    }
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

bool FolderGuard::MayEnter(const FileEntry& subfolder, const std::wstring& path) {
    if (IsCompatibilityJunction(subfolder)) {
        return false;
    }
    return subfolder.IsLink() ? MayEnterLink(path) : MayEnterOrdinary(path);
}

bool FolderGuard::MayEnterLink(const std::wstring& path) {
    const std::optional<FolderIdentity> target = fileSystem_.IdentityOf(path);
    if (!target) {
        // A broken link is entered, so that it is reported; links whose target cannot be told could
        // go round for ever, so there is one at most on the way.
        return std::none_of(steps_.begin(), steps_.end(),
                            [](const Step& step) { return step.IsUnidentifiedLink; });
    }
    return std::none_of(steps_.begin(), steps_.end(), [&](Step& step) {
        return IdentityOf(step.Source) == target || IdentityOf(step.Destination) == target;
    });
}

bool FolderGuard::MayEnterOrdinary(const std::wstring& path) {
    const auto& volume = IdentityOf(steps_[steps_.back().VolumeStep].Source);
    const auto& destination = IdentityOf(steps_.front().Destination);
    if (volume && destination && volume->Volume != destination->Volume) {
        return true;
    }
    const auto folder = destination ? fileSystem_.IdentityOf(path) : std::nullopt;
    return folder ? folder != destination
                  : fileSystem_.FoldedName(path) !=
                        fileSystem_.FoldedName(*steps_.front().Destination.Path);
}

}  // namespace ambrio
