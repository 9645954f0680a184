#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/win32/system/Handle.h"

namespace ambrio {

// The listing of one folder, fetched in large pieces and without short names. The folder is opened
// by the program itself, and not by the system's search, so that what is open can be asked which
// folder it is.
class Win32FolderReader : public FolderReader {
  public:
    // Throws RuntimeError; PathNotFound when there is no such folder.
    explicit Win32FolderReader(std::wstring extendedFolder);
    bool Next(FileEntry& entry) override;
    std::optional<FileIdentity> Identity() override;

  private:
    // Gets the next piece into room_; false at the end.
    bool Fetch();

    std::wstring extendedFolder_;
    UniqueHandle folder_;
    bool isAtEnd_ = false;
    std::unique_ptr<std::uint64_t[]> room_;  // as the records are aligned
    ULONG bytes_ = 0;                        // of the room
    std::size_t at_ = 0;                     // the next record in it, in bytes
    bool isInPiece_ = false;                 // there is one
};

}  // namespace ambrio
