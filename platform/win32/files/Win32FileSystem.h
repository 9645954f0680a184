#pragma once

#include "platform/CopyWatch.h"
#include "platform/FileSystem.h"
#include "platform/win32/files/FlushToDisk.h"

namespace ambrio {

// The file system of the machine.
class Win32FileSystem : public FileSystem {
  public:
    // Lets its copies of large files be watched and broken off there; it must live longer.
    explicit Win32FileSystem(CopyWatch& copyWatch) : copyWatch_(copyWatch) {}

    bool FileExists(const std::wstring& path) override;
    bool FolderExists(const std::wstring& path) override;
    // Both describe what a link to a file leads to; a link that leads nowhere is described by
    // itself.
    FileEntry GetFile(const std::wstring& path) override;
    std::optional<FileEntry> FindFile(const std::wstring& path) override;
    std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) override;
    std::optional<FileIdentity> IdentityOf(const std::wstring& path) override;
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

  private:
    CopyWatch& copyWatch_;
    FlushedDrives flushedDrives_;
};

}  // namespace ambrio
