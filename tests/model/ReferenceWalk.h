#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/model/RunRecord.h"

namespace ambrio {

// A Set as the walk needs it.
struct ModelSet {
    std::wstring Source;
    std::wstring Destination;
    bool IsRecursive = false;
    std::wstring CopyType;
    bool ClearsArchiveBit = false;
    bool RemovesCopies = false;
    bool OverwritesReadOnly = false;
};

// What the reference model knows of folders and files: the walk through a Set, the copy rules, and
// what a failure leads to.
class ReferenceWalk {
  public:
    explicit ReferenceWalk(RunRecord& run) : run_(run) {}

    // Throws LogTrouble.
    void RunSet(const ModelSet& set);

  private:
    struct File {
        std::wstring Name;
        std::wstring Source;
        std::wstring Copy;
        bool IsInNewFolder;  // the copy: the walk has made its folder
    };
    // The copies in a folder as they were when it was listed; nothing when it was not.
    using Listing = std::optional<std::map<std::wstring, ModelNode>>;
    // What a source folder holds, as far as it could be read.
    struct Content {
        std::vector<std::wstring> Files;
        std::vector<std::wstring> Folders;
        ModelDisk::Result BrokenOff;
    };

    void WalkFolder(const std::wstring& source, const std::wstring& destination);
    // Throws ModelFailure when the folder itself fails. False when the run was interrupted.
    bool WalkContent(const std::wstring& source, const std::wstring& destination, bool isNew);
    // True, and told, where the fault makes it one: the model's disk has no links.
    bool IsForeignLink(Stage stage, const std::wstring& folder);
    // Whether it had to be made; nothing when the walk cannot go on.
    std::optional<bool> MakeDestination(const std::wstring& destination);
    ModelDisk::Result MakeFolder(const std::wstring& path);
    ModelDisk::Result MakeMissingLevels(const std::wstring& destination);
    [[nodiscard]] Content ReadSource(const std::wstring& source) const;
    [[nodiscard]] Listing ListDestination(const std::wstring& destination) const;
    void SweepLeftovers(const std::wstring& source, const std::wstring& destination,
                        const Listing& listing);
    void FailFolder(ErrorNumber number, const wchar_t* action, const std::wstring& folder);

    // Throws ModelFailure when the failure is the folder's.
    void HandOver(const File& file, const Listing& listing);
    [[nodiscard]] bool Qualifies(const File& file) const;
    [[nodiscard]] bool HasCopyToRemove(const File& file, const Listing& listing) const;
    bool IsToBeCopied(const File& file, const Listing& listing);
    void Remove(const File& file);
    void Copy(const File& file);
    void ClearArchiveBit(const File& file);
    // Throws ModelFailure when this call of the stage fails.
    void Require(Stage stage, const std::wstring& path) const;

    RunRecord& run_;
    ModelSet set_;
    bool isClipPlaying_ = false;
};

}  // namespace ambrio
