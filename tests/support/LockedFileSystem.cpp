#include "tests/support/LockedFileSystem.h"

#include <utility>

namespace ambrio {

class LockedFileSystem::Reader : public FolderReader {
  public:
    Reader(LockedFileSystem& files, std::unique_ptr<FolderReader> reader)
        : files_(files), reader_(std::move(reader)) {}
    ~Reader() override {
        files_.Do([this] { reader_.reset(); });
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    bool Next(FileEntry& entry) override {
        return files_.Do([&] { return reader_->Next(entry); });
    }
    std::optional<FileIdentity> Identity() override {
        return files_.Do([&] { return reader_->Identity(); });
    }

  private:
    LockedFileSystem& files_;
    std::unique_ptr<FolderReader> reader_;
};

class LockedFileSystem::Stream : public TextStream {
  public:
    Stream(LockedFileSystem& files, std::unique_ptr<TextStream> stream)
        : files_(files), stream_(std::move(stream)) {}
    ~Stream() override {
        files_.Do([this] { stream_.reset(); });
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    void WriteLine(const std::wstring& text) override {
        files_.Do([&] { stream_->WriteLine(text); });
    }
    void Flush() override {
        files_.Do([&] { stream_->Flush(); });
    }

  private:
    LockedFileSystem& files_;
    std::unique_ptr<TextStream> stream_;
};

class LockedFileSystem::Prepared : public PreparedCopy {
  public:
    Prepared(LockedFileSystem& files, std::unique_ptr<PreparedCopy> copy)
        : files_(files), copy_(std::move(copy)) {}
    ~Prepared() override {
        files_.Do([this] { copy_.reset(); });
    }
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;

    [[nodiscard]] bool Finish(bool overwrite) override {
        return files_.Do([&] { return copy_->Finish(overwrite); });
    }

  private:
    LockedFileSystem& files_;
    std::unique_ptr<PreparedCopy> copy_;
};

bool LockedFileSystem::FileExists(const std::wstring& path) {
    return Do([&] { return ForwardingFileSystem::FileExists(path); });
}

bool LockedFileSystem::FolderExists(const std::wstring& path) {
    return Do([&] { return ForwardingFileSystem::FolderExists(path); });
}

FileEntry LockedFileSystem::GetFile(const std::wstring& path) {
    return Do([&] { return ForwardingFileSystem::GetFile(path); });
}

std::optional<FileEntry> LockedFileSystem::FindFile(const std::wstring& path) {
    return Do([&] { return ForwardingFileSystem::FindFile(path); });
}

std::optional<FileIdentity> LockedFileSystem::IdentityOf(const std::wstring& path) {
    return Do([&] { return ForwardingFileSystem::IdentityOf(path); });
}

bool LockedFileSystem::FindsFoldedNames(const std::wstring& folder) {
    return Do([&] { return ForwardingFileSystem::FindsFoldedNames(folder); });
}

void LockedFileSystem::CreateFolder(const std::wstring& path) {
    return Do([&] { return ForwardingFileSystem::CreateFolder(path); });
}

void LockedFileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    return Do([&] { return ForwardingFileSystem::SetAttributes(path, attributes); });
}

void LockedFileSystem::DeleteFile(const std::wstring& path, bool force) {
    return Do([&] { return ForwardingFileSystem::DeleteFile(path, force); });
}

void LockedFileSystem::CopyFile(const std::wstring& source, const std::wstring& destination,
                                bool overwrite, const Yield& yield) {
    return Do(
        [&] { return ForwardingFileSystem::CopyFile(source, destination, overwrite, yield); });
}

std::optional<std::uint64_t> LockedFileSystem::FreeBytes(const std::wstring& folder) {
    return Do([&] { return ForwardingFileSystem::FreeBytes(folder); });
}

bool LockedFileSystem::IsWritableFolder(const std::wstring& path, const std::wstring& file) {
    return Do([&] { return ForwardingFileSystem::IsWritableFolder(path, file); });
}

bool LockedFileSystem::MayFollow(const std::wstring& folder) {
    return Do([&] { return ForwardingFileSystem::MayFollow(folder); });
}

std::unique_ptr<FolderReader> LockedFileSystem::GetFolder(const std::wstring& path) {
    return std::make_unique<Reader>(*this,
                                    Do([&] { return ForwardingFileSystem::GetFolder(path); }));
}

std::unique_ptr<TextStream> LockedFileSystem::OpenForAppending(const std::wstring& path) {
    return std::make_unique<Stream>(
        *this, Do([&] { return ForwardingFileSystem::OpenForAppending(path); }));
}

std::unique_ptr<PreparedCopy> LockedFileSystem::PrepareCopy(const ExpectedCopy& what,
                                                            const std::function<bool()>& isWanted) {
    auto copy = Do([&] { return ForwardingFileSystem::PrepareCopy(what, isWanted); });
    return copy ? std::make_unique<Prepared>(*this, std::move(copy)) : nullptr;
}

}  // namespace ambrio
