#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "tests/support/MemoryNode.h"

namespace ambrio {

class MemoryFileSystem;

// A listing of the in-memory file system. It sees entries that come or go while it walks.
class MemoryFolderReader : public FolderReader {
  public:
    // Counts itself in `openHandles`, which lives longer.
    MemoryFolderReader(MemoryNode::Pointer folder, int& openHandles);
    ~MemoryFolderReader() override;
    MemoryFolderReader(const MemoryFolderReader&) = delete;
    MemoryFolderReader& operator=(const MemoryFolderReader&) = delete;

    bool Next(FileEntry& entry) override;
    std::optional<FileIdentity> Identity() override;

  private:
    MemoryNode::Pointer folder_;
    int& openHandles_;
    std::uint64_t from_ = 0;
};

// A text file of it that is open for appending.
class MemoryTextStream : public TextStream {
  public:
    MemoryTextStream(MemoryFileSystem& fileSystem, MemoryNode::Pointer file);
    ~MemoryTextStream() override;
    MemoryTextStream(const MemoryTextStream&) = delete;
    MemoryTextStream& operator=(const MemoryTextStream&) = delete;

    void WriteLine(const std::wstring& text) override;
    void Flush() override;

  private:
    MemoryFileSystem& fileSystem_;
    MemoryNode::Pointer file_;
};

}  // namespace ambrio
