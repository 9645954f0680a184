#include "engine/LookAhead.h"

#include <utility>
#include <vector>

#include "platform/PlainName.h"

namespace ambrio {

LookAhead::LookAhead(const RunContext& run, FolderReader& listing,
                     const DestinationListing& destination)
    : run_(run), listing_(listing), destination_(destination) {}

LookAhead::~LookAhead() {
    run_.Files.ExpectNothing();
}

bool LookAhead::Next(FileEntry& entry) {
    if (next_ == entries_.size()) {
        entries_.clear();
        next_ = 0;
        if (!Read(entry)) {
            if (failure_) {
                std::rethrow_exception(std::exchange(failure_, nullptr));
            }
            return false;
        }
        if (!IsExpected(entry)) {
            return true;
        }
        entries_.push_back(std::move(entry));
        Fill();
    } else if (entries_.size() - next_ <= kMostEntries / 2 && !isAtEnd_) {
        entries_.erase(entries_.begin(), entries_.begin() + static_cast<std::ptrdiff_t>(next_));
        next_ = 0;
        Fill();
    }
    entry = std::move(entries_[next_++]);
    return true;
}

bool LookAhead::Read(FileEntry& entry) {
    try {
        if (!isAtEnd_ && listing_.Next(entry)) {
            return true;
        }
    } catch (...) {
        failure_ = std::current_exception();
    }
    isAtEnd_ = true;
    return false;
}

// What has been named once is not named again.
void LookAhead::Fill() {
    std::size_t known = entries_.size() == 1 ? 0 : entries_.size();
    while (entries_.size() < kMostEntries) {
        FileEntry next;
        if (!Read(next)) {
            break;
        }
        entries_.push_back(std::move(next));
    }
    std::vector<ExpectedCopy> copies;
    for (; known < entries_.size(); ++known) {
        const FileEntry& entry = entries_[known];
        if (IsExpected(entry)) {
            copies.push_back(
                {FileSystem::BuildPath(destination_.Folder().Source().Path(), entry.Name),
                 destination_.PathOf(entry.Name), entry.Size,
                 destination_.SeemsMissing(entry.Name)});
        }
    }
    // One alone has nothing to gain.
    if (copies.size() > 1 && !destination_.IsSourceItself()) {
        run_.Files.ExpectCopies(copies);
    }
}

bool LookAhead::IsExpected(const FileEntry& entry) const {
    return !run_.Signals.Interrupted && destination_.IsProbablyBehind(entry) &&
           IsPlainName(entry.Name);
}

}  // namespace ambrio
