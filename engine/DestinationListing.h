#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/RunHost.h"
#include "engine/RunSignals.h"
#include "engine/WalkedFolder.h"
#include "platform/FileSystem.h"

namespace ambrio {

// The copies that a destination folder holds, for the source files of one folder. Listed once, so
// that a copy that needs nothing costs no call; whoever is about to change a copy asks afresh.
class DestinationListing {
  public:
    // Both must live longer.
    DestinationListing(FileSystem& fileSystem, const WalkedFolder& folder);

    // For a folder that was just made: it holds only what is noted from then on.
    void KnowEmpty() { isListed_ = isNew_ = true; }
    // Lists the folder. When that fails or the run is interrupted meanwhile, each copy is asked for
    // by itself from then on. Lets events run now and then.
    void Fetch(RunHost& host, const RunSignals& signals);

    // The names of temporary files that killed copies left behind, as far as listed.
    [[nodiscard]] const std::vector<std::wstring>& Leftovers() const { return leftovers_; }

    [[nodiscard]] const WalkedFolder& Folder() const { return folder_; }
    [[nodiscard]] std::wstring PathOf(const std::wstring& name) const;
    // The copy as it was when the folder was listed, without its name; nothing when the listing
    // cannot tell: there was none, it had no such name, or one that may belong to another file.
    [[nodiscard]] std::optional<FileEntry> Listed(const std::wstring& name) const;
    // Whether a file of the source folder, as listed, will be copied by all that the listing says.
    // Nothing is said for sure.
    [[nodiscard]] bool IsProbablyBehind(const FileEntry& source) const;
    // What the copy that has this name is called where that is not the same spelling: a copy of
    // another file, perhaps, whose name differs in nothing but its case.
    [[nodiscard]] std::optional<std::wstring> OtherSpelling(const std::wstring& name) const;
    // What the listing said of the copy holds no longer.
    void Forget(const std::wstring& name);
    // A copy is being made.
    void Note(const std::wstring& name);
    // False when the folder was listed without it and a listing can be trusted in that.
    [[nodiscard]] bool MayHold(const std::wstring& name) const;
    // True when the folder was listed, or is new, and nothing is known of a copy of that name.
    // There may be one even so, which somebody else has made since.
    [[nodiscard]] bool SeemsMissing(const std::wstring& name) const {
        return isListed_ && Find(name) == nullptr;
    }
    // The copy as it is now; nothing when there is none. Asks the file system unless the folder was
    // just made and no copy of that name since. Throws RuntimeError.
    [[nodiscard]] std::optional<FileEntry> Ask(const std::wstring& name) const;
    // True when a copy in it would be the source file itself. Asks the file system once.
    [[nodiscard]] bool IsSourceItself() const;

  private:
    struct Copy {
        std::wstring Name;
        FileAttributes Attributes = 0;
        FileSeconds DateLastModified = 0;
        bool IsCertain = false;  // it is as the listing said, and the only one of its folded name
    };

    void Add(FileEntry&& entry);
    // The copy of that folded name; null when nothing is known of one. Whoever changes the copies
    // calls ForgetFound.
    [[nodiscard]] const Copy* Find(const std::wstring& name) const;
    void ForgetFound() const { isFound_ = false; }
    bool FindsFoldedNames() const;
    void ForgetAll();

    FileSystem& fileSystem_;
    const WalkedFolder& folder_;
    bool isListed_ = false;
    bool isNew_ = false;
    mutable std::optional<bool> findsFoldedNames_;   // asked when it first matters
    std::unordered_map<std::wstring, Copy> copies_;  // by folded name
    // What was looked for last, as several questions come about each file.
    mutable bool isFound_ = false;
    mutable std::wstring foundName_;
    mutable const Copy* found_ = nullptr;
    std::vector<std::wstring> leftovers_;
};

}  // namespace ambrio
