#pragma once

#include <utility>

#include "engine/CopyRule.h"
#include "engine/FolderGuard.h"
#include "platform/FileSystem.h"
#include "settings/BackupSet.h"
#include "settings/SettingKeys.h"

namespace ambrio {

// What stays the same for a Set from its source folder down, worked out once.
struct WalkedSet {
    // The file system must live longer.
    WalkedSet(FileSystem& fileSystem, BackupSet set)
        : Record(std::move(set)),
          Rule(CopyRuleOf(Record.rsCopyType)),
          ClearsArchiveBit(Record.rbClearArchive && Record.rsCopyType == kCopyTypeArchiveBit),
          Guard(fileSystem) {}

    const BackupSet Record;
    const CopyRule Rule;          // of its copy type
    const bool ClearsArchiveBit;  // of a file that has been copied
    const FolderGuard Guard;
};

}  // namespace ambrio
