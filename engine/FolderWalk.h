#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/FileCopier.h"
#include "engine/FolderGuard.h"
#include "engine/RunContext.h"
#include "platform/RuntimeError.h"

namespace ambrio {

// Walks the folders of a Set. The copier must live longer.
class FolderWalk {
  public:
    FolderWalk(const RunContext& run, FileCopier& copier);

    // Backs up one folder with all that belongs to it, and for a recursive Set its subfolders. A
    // failure that escapes from the folder itself is logged and counted as a folder that could not
    // be accessed. Only LogFailure comes out. `isLink` tells that the folder was reached by a link.
    void WalkFolder(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                    bool rbRecursive, const std::wstring& rsCopyType, bool rbClearArchive,
                    bool rbDeleteCopy, bool rbOverwriteReadOnly, bool isLink = false);

  private:
    enum class Preparation { Failed, SourceMissing, DestinationThere, DestinationMade };

    // What stays the same from a Set's source folder down.
    struct Rules {
        bool rbRecursive;
        const std::wstring& rsCopyType;
        bool rbClearArchive;
        bool rbDeleteCopy;
        bool rbOverwriteReadOnly;
    };

    // A folder that is missing or whose destination cannot be made is logged and counted. Throws
    // RuntimeError when the listing or a file's handling fails in a way that is nobody's below.
    void CopyFiles(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                   bool rbRecursive, const std::wstring& rsCopyType, bool rbClearArchive,
                   bool rbDeleteCopy, bool rbOverwriteReadOnly);
    Preparation PrepareFolders(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir);
    bool CopyContents(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir, bool isNew,
                      const Rules& rules);
    bool CopyListedFiles(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                         bool isNew, const std::vector<std::wstring>& files, const Rules& rules);
    void WalkSubFolders(const std::wstring& rsSourceDir, const std::wstring& rsDestnDir,
                        const std::vector<FileEntry>& subFolders, const Rules& rules);
    bool MayEnter(const FileEntry& subFolder, const std::wstring& path,
                  const std::wstring& destination);
    // Reports the folder and gives false when the step fails.
    bool Try(const std::function<void()>& step, const std::wstring& action,
             const std::wstring& folder);
    void ReportFolder(const RuntimeError& failure, const std::wstring& action,
                      const std::wstring& folder);
    void ClearFsoStatus();

    const RunContext run_;
    FileCopier& copier_;
    FolderGuard guard_;
};

}  // namespace ambrio
