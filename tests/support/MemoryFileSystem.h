#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "tests/support/MemoryNode.h"
#include "tests/support/MemoryPath.h"

namespace ambrio {

// A file system in memory that behaves as Windows does: names in any case, the archive bit set by
// every write, read-only rules, error numbers. Listings come in the order in which the entries were
// made. It starts with an empty drive "C:".
class MemoryFileSystem : public FileSystem {
  public:
    MemoryFileSystem();

    bool FileExists(const std::wstring& path) override;
    bool FolderExists(const std::wstring& path) override;
    FileEntry GetFile(const std::wstring& path) override;
    std::optional<FileEntry> FindFile(const std::wstring& path) override;
    std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) override;
    std::optional<FileIdentity> IdentityOf(const std::wstring& path) override;
    // False for shares and for volumes that tell names apart by their case.
    bool FindsFoldedNames(const std::wstring& folder) override;
    void CreateFolder(const std::wstring& path) override;
    void SetAttributes(const std::wstring& path, FileAttributes attributes) override;
    void DeleteFile(const std::wstring& path, bool force) override;
    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override;
    std::unique_ptr<PreparedCopy> PrepareCopy(const ExpectedCopy& copy,
                                              const std::function<bool()>& isWanted) override;
    std::optional<std::uint64_t> FreeBytes(const std::wstring& folder) override;
    std::unique_ptr<TextStream> OpenForAppending(const std::wstring& path) override;
    bool IsWritableFolder(const std::wstring& path, const std::wstring& file) override;
    bool MayFollow(const std::wstring& folder) override;
    [[nodiscard]] std::wstring FoldedName(const std::wstring& name) const override;

    // What follows arranges and inspects, for tests. It asks no permissions, so it reaches what the
    // operations above refuse; it throws RuntimeError for a path that does not exist.

    // Adds or changes a drive ("D:") or a share ("\\server\share").
    void SetVolume(const std::wstring& root, bool present, bool ready = true);
    // From now on the volume, which holds nothing yet, tells names apart by their case.
    void TellCasesApart(const std::wstring& root);
    // The content that the volume holds at most, in bytes; nothing for no limit.
    void SetQuota(const std::wstring& root, std::optional<std::uint64_t> bytes);

    // Make or replace a file, and make a folder, with every missing level and without time passing.
    void WriteFile(const std::wstring& path, const std::string& content = {},
                   FileAttributes attributes = kAttributeArchive,
                   std::optional<FileSeconds> time = std::nullopt);
    void MakeFolder(const std::wstring& path, FileAttributes attributes = 0);
    enum class LinkKind { ToFile, ToFolder, MountPoint };
    // `target` is a full path that need not exist.
    void MakeLink(const std::wstring& path, const std::wstring& target, LinkKind kind,
                  FileAttributes attributes = 0);
    // Removes a file, a link or a whole tree.
    void Remove(const std::wstring& path);
    // Renames within the folder, over an existing file as well.
    void Rename(const std::wstring& path, const std::wstring& newName);

    // The file or folder itself, links not followed, to look at or to change (Locked,
    // ListingDenied, DateLastModified, ...).
    MemoryNode& Node(const std::wstring& path);
    [[nodiscard]] std::string Content(const std::wstring& path);

    // The tree below `path`, sorted, a line each: path, attribute letters, time, content (of a long
    // one the length and a check sum), for comparison. Folders have no time in it.
    std::vector<std::wstring> Snapshot(const std::wstring& path = L"C:\\");

    // The time that writes get. It stands still until it is set.
    FileSeconds Now = 13'440'000'000;
    // Stands in the names of temporaries.
    std::uint32_t ProcessId = 1;
    // Called when a copy is complete under its temporary name; what it throws leaves the temporary,
    // as the end of the process does.
    std::function<void()> BeforeRename;

    // Listings and text streams that are open.
    [[nodiscard]] int OpenHandles() const { return openHandles_; }

  private:
    friend class MemoryFolderReader;
    friend class MemoryTextStream;

    // A name in a folder that exists.
    struct Place {
        MemoryNode::Pointer Folder;
        std::wstring Name;
    };
    enum class LastLink { Follow, Keep };

    MemoryNode::Pointer NewNode(MemoryVolume& volume, const std::wstring& name,
                                FileAttributes attributes);
    MemoryNode::Pointer RootOf(const MemoryPath& path) const;
    MemoryNode::Pointer Find(const std::wstring& path, LastLink last) const;
    MemoryNode::Pointer Walk(const MemoryPath& path, LastLink last, int linksFollowed = 0) const;
    // The same, but nothing when only the last name is missing.
    MemoryNode::Pointer FindIfThere(const std::wstring& path, LastLink last) const;
    MemoryNode::Pointer RequireFile(const std::wstring& path) const;
    // Links followed.
    MemoryNode::Pointer RequireFolder(const std::wstring& path) const;
    Place PlaceOf(const std::wstring& path) const;
    // The folder that holds the path, every missing level made.
    Place MakePlace(const std::wstring& path);
    MemoryNode::Pointer CopyUnder(const MemoryNode::Pointer& source, const Place& temporary,
                                  const Yield& yield);
    void AddSnapshot(const MemoryNode& node, const std::wstring& path,
                     std::vector<std::wstring>& lines) const;

    std::map<std::wstring, std::unique_ptr<MemoryVolume>> volumes_;  // by folded name
    std::map<std::uint64_t, MemoryNode::Pointer> roots_;             // by volume id
    std::uint64_t nextId_ = 1;
    int openHandles_ = 0;
};

}  // namespace ambrio
