#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "engine/KnownFolder.h"
#include "platform/FileSystem.h"

namespace ambrio {

// Knows the folders on the way from a Set's source folder to the one being walked, and keeps the
// walk out of subfolders in which it would never end or which nobody may list: the Set's own
// destination, links that lead back to a folder being walked or filled, and the system's own
// compatibility junctions; and out of one whose copies would land on the Set's source. The file
// system is asked for identities only where they can matter.
class FolderGuard {
  public:
    explicit FolderGuard(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    // One folder on the way, for as long as it is walked.
    class Level {
      public:
        Level(FolderGuard& guard, const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
              bool isLink);
        ~Level();
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

      private:
        FolderGuard& guard_;
    };

    // Whether a subfolder of the innermost folder may be walked, whose destination must exist.
    // `destination` is where the subfolder's copies go. Throws RuntimeError for a link that leads
    // nowhere or to where nobody can tell, and where copies would take the place of source files:
    // what lies there is not backed up.
    [[nodiscard]] bool MayEnter(const FileEntry& subfolder, const std::wstring& path,
                                const std::wstring& destination) const;

  private:
    struct Step {
        KnownFolder Source;
        KnownFolder Destination;
        std::size_t VolumeStep;  // the step that tells the volume: the last link, or the first
    };

    [[nodiscard]] bool LeadsBack(const KnownFolder& link) const;
    [[nodiscard]] bool IsDestination(const KnownFolder& subfolder) const;
    [[nodiscard]] bool IsSource(const KnownFolder& destination) const;

    FileSystem& fileSystem_;
    std::vector<Step> steps_;
};

}  // namespace ambrio
