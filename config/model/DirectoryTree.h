#pragma once

#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace ambrio {

// One line of the directory list.
struct DirectoryRow {
    std::wstring Name;  // a root has its whole path as its name
    std::wstring Path;
    int Depth = 0;        // the root has 0
    bool IsOpen = false;  // the open directory or one of its ancestors
};

// The directory list: the open directory, its ancestors above it and its subdirectories below it.
// Nothing is open at first.
class DirectoryTree {
  public:
    // `fileSystem` must live longer.
    explicit DirectoryTree(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    // Opens the directory of a full path. Throws RuntimeError when it cannot be listed; what was
    // open then stays open.
    void Open(const std::wstring& path);

    // The open directory; without a separator at its end unless it is a root.
    [[nodiscard]] const std::wstring& Path() const { return path_; }
    // The ancestors from the root down, the open directory, then its subdirectories by name.
    // Subdirectories that are both hidden and the system's own are left out.
    [[nodiscard]] const std::vector<DirectoryRow>& Rows() const { return rows_; }
    // The row of the open directory.
    [[nodiscard]] std::size_t OpenRow() const { return openRow_; }

  private:
    [[nodiscard]] std::vector<std::wstring> SubdirectoriesOf(const std::wstring& path);

    FileSystem& fileSystem_;
    std::wstring path_;
    std::vector<DirectoryRow> rows_;
    std::size_t openRow_ = 0;
};

}  // namespace ambrio
