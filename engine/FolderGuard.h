#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace ambrio {

class WalkedFolder;

// Throws PathFileAccessError for a folder that is another user's link.
void RequireFollowable(FileSystem& fileSystem, const std::wstring& folder);

// Keeps the walk of a Set out of subfolders in which it would never end or which nobody may list:
// the Set's own destination, links that lead back to a folder being walked or filled, and the
// system's own compatibility junctions; and out of one whose copies would land on the Set's source.
// The file system is asked for identities only where they can matter.
class FolderGuard {
  public:
    // The file system must live longer.
    explicit FolderGuard(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    // Whether a subfolder may be walked, which its parent's listing describes as `entry`; the
    // destination of the parent must exist. Throws RuntimeError for a link that is another user's,
    // leads nowhere or to where nobody can tell, and where copies would take the place of source
    // files: what lies there is not backed up.
    [[nodiscard]] bool MayEnter(const WalkedFolder& subfolder, const FileEntry& entry) const;

  private:
    FileSystem& fileSystem_;
};

}  // namespace ambrio
