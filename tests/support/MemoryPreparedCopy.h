#pragma once

#include <optional>
#include <string>

#include "tests/support/MemoryFileSystem.h"

namespace ambrio {

// A copy in memory that lacks its name.
class MemoryPreparedCopy : public PreparedCopy {
  public:
    // The copy is made under the temporary name already. The file system must live longer.
    MemoryPreparedCopy(MemoryFileSystem& files, ExpectedCopy what, MemoryNode::Pointer folder,
                       MemoryNode::Pointer copy);
    ~MemoryPreparedCopy() override;
    MemoryPreparedCopy(const MemoryPreparedCopy&) = delete;
    MemoryPreparedCopy& operator=(const MemoryPreparedCopy&) = delete;

    [[nodiscard]] bool Finish(bool overwrite) override;

  private:
    // What is at a path, and what it looks like; nothing where there is nothing.
    struct Looks {
        const MemoryNode* Node = nullptr;
        FileAttributes Attributes = 0;
        FileSeconds Time = 0;
        std::uint64_t Size = 0;

        friend bool operator==(const Looks&, const Looks&) = default;
    };
    [[nodiscard]] Looks LooksOf(const std::wstring& path) const;

    MemoryFileSystem& files_;
    const ExpectedCopy what_;
    const MemoryNode::Pointer folder_;
    const MemoryNode::Pointer copy_;
    const std::wstring temporaryName_;
    const Looks sourceLooks_;
    const Looks destinationLooks_;
    bool isFinished_ = false;
};

}  // namespace ambrio
