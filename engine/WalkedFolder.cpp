#include "engine/WalkedFolder.h"

namespace ambrio {

WalkedFolder::WalkedFolder(FileSystem& fileSystem, const WalkedSet& set)
    : fileSystem_(fileSystem),
      set_(set),
      source_(fileSystem, set.Record.rsSourceDir),
      destination_(fileSystem, set.Record.rsDestnDir),
      parent_(nullptr),
      root_(*this),
      volumeRoot_(*this) {}

WalkedFolder::WalkedFolder(const WalkedFolder& parent, const FileEntry& subfolder)
    : fileSystem_(parent.fileSystem_),
      set_(parent.set_),
      source_(fileSystem_, FileSystem::BuildPath(parent.source_.Path(), subfolder.Name),
              KnownFolder::Asked::Listing),
      destination_(fileSystem_, FileSystem::BuildPath(parent.destination_.Path(), subfolder.Name),
                   KnownFolder::Asked::Listing),
      parent_(&parent),
      root_(parent.root_),
      volumeRoot_(subfolder.IsLink() ? *this : parent.volumeRoot_) {}

}  // namespace ambrio
