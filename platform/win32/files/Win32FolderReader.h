#pragma once

#include "platform/FileSystem.h"
#include "platform/win32/system/Handle.h"

namespace ambrio {

// The listing of one folder, fetched in large pieces and without short names.
class Win32FolderReader : public FolderReader {
  public:
    // Throws RuntimeError; PathNotFound when there is no such folder.
    explicit Win32FolderReader(const std::wstring& extendedFolder);
    bool Next(FileEntry& entry) override;

  private:
    bool Advance();

    WIN32_FIND_DATAW data_{};
    UniqueFindHandle search_;  // empty when the listing is at its end
    bool pending_ = false;     // data_ holds an entry that Next has not given yet
};

}  // namespace ambrio
