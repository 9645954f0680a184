#pragma once

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/DestinationListing.h"
#include "engine/EngineTexts.h"
#include "engine/FileCopier.h"
#include "engine/RunContext.h"
#include "engine/WalkedFolder.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace ambrio {

// Walks the folders of a Set. The copier must live longer.
class FolderWalk {
  public:
    FolderWalk(const RunContext& run, FileCopier& copier);

    // Backs up one folder with all that belongs to it, and for a recursive Set its subfolders. A
    // folder that is missing, cannot be read or whose destination cannot be made is logged and
    // counted, and the walk goes on with the next one. Only LogFailure comes out.
    void CopyFiles(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                   bool rbRecursive, const std::wstring& rsCopyType, bool rbClearArchive,
                   bool rbDeleteCopy, bool rbOverwriteReadOnly);

  private:
    enum class Preparation { Failed, SourceMissing, DestinationThere, DestinationMade };

    // A failure that escapes from the folder itself is logged and counted as a folder that could
    // not be accessed.
    void WalkFolder(const WalkedFolder& folder);
    // Throws RuntimeError when the listing or a file's handling fails in a way that is nobody's
    // below.
    void BackUpFolder(const WalkedFolder& folder);
    Preparation PrepareFolders(const WalkedFolder& folder);
    // Reports another user's link and gives false.
    bool IsFollowable(const KnownFolder& folder);
    bool CopyContents(const WalkedFolder& folder, bool isNew);
    bool CopyListedFiles(const WalkedFolder& folder, bool isNew,
                         std::vector<FileEntry>& subFolders);
    static bool IsOwnTemporary(const std::wstring& name, const DestinationListing& destination);
    bool HandOver(const std::wstring& name, DestinationListing& destination);
    void WalkSubFolders(const WalkedFolder& folder, const std::vector<FileEntry>& subFolders);
    bool MayEnter(const WalkedFolder& subFolder, const FileEntry& entry);
    // The names of the subfolders that were entered, by the folded ones; not owned.
    using Entered = std::unordered_map<std::wstring, const std::wstring*>;
    // Reports a folder and gives false where an earlier one, whose name differs from its in nothing
    // but its case, has the same destination: their files would be taken for each other.
    bool HasOwnPlace(const WalkedFolder& subFolder, const std::wstring& name, Entered& entered);
    // Reports the folder and gives false when the step fails.
    bool Try(const std::function<void()>& step, const FolderAction& action,
             const KnownFolder& folder);
    void ReportFolder(const RuntimeError& failure, FolderAction action, const std::wstring& path);
    void ShowFsoStatus(const std::wstring& caption);
    // Once only after a status was shown.
    void ClearFsoStatus();

    const RunContext run_;
    FileCopier& copier_;
    std::wstring fsoStatus_;  // what lblfsoStatus was given last
};

}  // namespace ambrio
