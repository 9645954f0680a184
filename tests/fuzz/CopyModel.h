#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"
#include "settings/BackupSet.h"
#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

struct ModelFile {
    std::string Content;
    FileAttributes Attributes = 0;
    FileSeconds Time = 0;

    friend bool operator==(const ModelFile&, const ModelFile&) = default;
};

// A folder with what is in it, in the order of its listing.
struct ModelFolder {
    std::wstring Name;
    std::vector<std::pair<std::wstring, ModelFile>> Files;
    std::vector<ModelFolder> Folders;

    friend bool operator==(const ModelFolder&, const ModelFolder&) = default;
};

// The path of what is in a folder; that of a tree's root is empty.
[[nodiscard]] std::wstring PathBelow(const std::wstring& folder, const std::wstring& name);

// Operations that fail each time, by what they are called with: for CopyFile the source.
using ModelFaults = std::set<std::pair<FileOperation, std::wstring>>;

// What a run must make of two trees, told without the engine in as few words as it takes. It knows
// the copy rules and what a failure leads to; not the log, the panel or the screen saver.
class CopyModel {
  public:
    explicit CopyModel(ModelFaults faults) : faults_(std::move(faults)) {}

    // Runs one Set from `source` to the files below `copies`, which are named by their paths below
    // the Set's destination. Both are left as the run leaves them.
    void RunSet(const BackupSet& set, ModelFolder& source,
                std::map<std::wstring, ModelFile>& copies);

    int Checked = 0;
    int Copied = 0;  // attempts, as are the removals
    int CopyErrors = 0;
    int Removed = 0;
    int RemoveErrors = 0;
    int FolderErrors = 0;
    bool Interrupted = false;

  private:
    [[nodiscard]] bool Fails(FileOperation operation, const std::wstring& path) const {
        return faults_.contains({operation, path});
    }
    void Walk(ModelFolder& folder, const std::wstring& below);
    void HandOver(ModelFile& file, const std::wstring& path);
    void Copy(ModelFile& file, const std::wstring& path);
    // False when the run is interrupted by the look at the copy.
    bool LookAtCopy(const ModelFile& file, const std::wstring& path, bool& isToBeCopied);

    const ModelFaults faults_;
    const BackupSet* set_ = nullptr;
    std::map<std::wstring, ModelFile>* copies_ = nullptr;
};

}  // namespace ambrio
