#pragma once

#include "platform/FileSystem.h"

namespace ambrio {

// Passes every operation on to another file system. Derive from it and override what is to differ.
// The other one is not owned and must live longer.
class ForwardingFileSystem : public FileSystem {
  public:
    explicit ForwardingFileSystem(FileSystem& target) : target_(target) {}

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
    void ExpectCopies(const std::vector<ExpectedCopy>& copies) override;
    void ExpectNothing() override;
    void EndExpecting() override;
    std::unique_ptr<TextStream> OpenForAppending(const std::wstring& path) override;
    bool IsWritableFolder(const std::wstring& path, const std::wstring& file) override;
    bool MayFollow(const std::wstring& folder) override;
    [[nodiscard]] std::wstring FoldedName(const std::wstring& name) const override;

  protected:
    [[nodiscard]] FileSystem& Target() const { return target_; }

  private:
    FileSystem& target_;
};

// The same for the listing of one folder; it owns the other reader.
class ForwardingFolderReader : public FolderReader {
  public:
    explicit ForwardingFolderReader(std::unique_ptr<FolderReader> target);
    bool Next(FileEntry& entry) override;
    std::optional<FileIdentity> Identity() override;

  private:
    std::unique_ptr<FolderReader> target_;
};

// The same for a text stream; it owns the other stream.
class ForwardingTextStream : public TextStream {
  public:
    explicit ForwardingTextStream(std::unique_ptr<TextStream> target);
    void WriteLine(const std::wstring& text) override;
    void Flush() override;

  private:
    std::unique_ptr<TextStream> target_;
};

}  // namespace ambrio
