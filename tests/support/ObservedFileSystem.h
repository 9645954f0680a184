#pragma once

#include "platform/ForwardingFileSystem.h"

namespace ambrio {

// The operations of a FileSystem and of what it opens. FoldedName is none, as it touches no disk.
enum class FileOperation {
    FileExists,
    FolderExists,
    GetFile,
    FindFile,
    GetFolder,
    Next,
    IdentityOf,  // asked of the file system or of a reader
    CreateFolder,
    SetAttributes,
    DeleteFile,
    CopyFile,
    OpenForAppending,
    WriteLine,
    Flush,
    IsWritableFolder,
    MayFollow,
};

// What an operation was called with.
struct FileCall {
    FileOperation Operation;
    // For what is asked of something that was opened, that of the folder or file.
    std::wstring Path;
    std::wstring Destination = {};  // of CopyFile only
};

// Tells its derived class of every operation before it passes it on. Readers and streams refer to
// it, so it must live longer than they.
class ObservedFileSystem : public ForwardingFileSystem {
  public:
    using ForwardingFileSystem::ForwardingFileSystem;

    bool FileExists(const std::wstring& path) override;
    bool FolderExists(const std::wstring& path) override;
    FileEntry GetFile(const std::wstring& path) override;
    std::optional<FileEntry> FindFile(const std::wstring& path) override;
    std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) override;
    std::optional<FileIdentity> IdentityOf(const std::wstring& folder) override;
    void CreateFolder(const std::wstring& path) override;
    void SetAttributes(const std::wstring& path, FileAttributes attributes) override;
    void DeleteFile(const std::wstring& path, bool force) override;
    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override;
    std::unique_ptr<TextStream> OpenForAppending(const std::wstring& path) override;
    bool IsWritableFolder(const std::wstring& path, const std::wstring& file) override;
    bool MayFollow(const std::wstring& folder) override;

    // False makes an operation that answers by a Boolean or an optional answer false or nothing,
    // without being passed on; for the others the result does not matter. What it throws reaches
    // the caller of the operation. For this class's own readers and streams as well.
    virtual bool Before(const FileCall& call) = 0;
};

}  // namespace ambrio
