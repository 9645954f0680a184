#pragma once

#include <mutex>

#include "platform/ForwardingFileSystem.h"

namespace ambrio {

// Lets one thread at a time use another file system that is made for one.
class LockedFileSystem : public ForwardingFileSystem {
  public:
    using ForwardingFileSystem::ForwardingFileSystem;

    bool FileExists(const std::wstring& path) override;
    bool FolderExists(const std::wstring& path) override;
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

  private:
    class Reader;
    class Stream;
    class Prepared;

    // Makes a call with the lock held.
    template <typename Call>
    auto Do(const Call& call) {
        const std::lock_guard lock(mutex_);
        return call();
    }

    std::recursive_mutex mutex_;  // a yield may come back
};

}  // namespace ambrio
