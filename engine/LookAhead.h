#pragma once

#include <cstddef>
#include <exception>
#include <vector>

#include "engine/DestinationListing.h"
#include "engine/RunContext.h"
#include "platform/FileSystem.h"

namespace ambrio {

// The listing of a source folder, a few entries ahead where files are to be copied, so that the
// file system can be told which copies to expect. Nothing is read ahead of files that have their
// copies, and nothing is expected of an interrupted run or in a folder that is copied to itself.
class LookAhead {
  public:
    // All must live longer; the listing of the destination is known.
    LookAhead(const RunContext& run, FolderReader& listing, const DestinationListing& destination);
    // Nothing more is expected of the folder.
    ~LookAhead();
    LookAhead(const LookAhead&) = delete;
    LookAhead& operator=(const LookAhead&) = delete;

    // As the listing itself gives its entries, and throws, in the same order.
    bool Next(FileEntry& entry);

    static constexpr std::size_t kMostEntries = 32;

  private:
    // False at the end, and when the listing breaks off.
    bool Read(FileEntry& entry);
    void Fill();
    [[nodiscard]] bool IsExpected(const FileEntry& entry) const;

    const RunContext& run_;
    FolderReader& listing_;
    const DestinationListing& destination_;
    std::vector<FileEntry> entries_;
    std::size_t next_ = 0;  // the first of them that has not been given
    bool isAtEnd_ = false;
    std::exception_ptr failure_;  // comes after the entries
};

}  // namespace ambrio
