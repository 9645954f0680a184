#pragma once

#include <string>

#include "engine/KnownFolder.h"
#include "engine/WalkedSet.h"
#include "platform/FileSystem.h"

namespace ambrio {

// A folder of a Set for as long as it is walked, the folder that receives its copies, and the way
// to both from the Set's own folders. Everything given must live longer.
class WalkedFolder {
  public:
    // The Set's own folders.
    WalkedFolder(FileSystem& fileSystem, const WalkedSet& set);
    // What has the subfolder's name in the parent and in the parent's destination.
    WalkedFolder(const WalkedFolder& parent, const FileEntry& subfolder);
    ~WalkedFolder() = default;
    WalkedFolder(const WalkedFolder&) = delete;
    WalkedFolder& operator=(const WalkedFolder&) = delete;

    [[nodiscard]] const WalkedSet& Set() const { return set_; }
    [[nodiscard]] const KnownFolder& Source() const { return source_; }
    // Exists once the walk has entered the folder.
    [[nodiscard]] const KnownFolder& Destination() const { return destination_; }

    // The folder above; null for the Set's own.
    [[nodiscard]] const WalkedFolder* Parent() const { return parent_; }
    // The Set's own folders.
    [[nodiscard]] const WalkedFolder& Root() const { return root_; }
    // The folder on the way whose source tells the volume of this one's: the last link, or the
    // Set's own.
    [[nodiscard]] const WalkedFolder& VolumeRoot() const { return volumeRoot_; }

  private:
    FileSystem& fileSystem_;
    const WalkedSet& set_;
    const KnownFolder source_;
    const KnownFolder destination_;
    const WalkedFolder* const parent_;
    const WalkedFolder& root_;
    const WalkedFolder& volumeRoot_;
};

}  // namespace ambrio
