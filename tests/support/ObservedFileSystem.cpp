#include "tests/support/ObservedFileSystem.h"

#include <utility>

namespace ambrio {
namespace {

class ObservedReader : public ForwardingFolderReader {
  public:
    ObservedReader(std::unique_ptr<FolderReader> target, ObservedFileSystem& observer,
                   std::wstring path)
        : ForwardingFolderReader(std::move(target)),
          observer_(observer),
          call_{FileOperation::Next, std::move(path)} {}

    bool Next(FileEntry& entry) override {
        observer_.Before(call_);
        return ForwardingFolderReader::Next(entry);
    }
    std::optional<FileIdentity> Identity() override {
        if (!observer_.Before({FileOperation::IdentityOf, call_.Path})) {
            return std::nullopt;
        }
        return ForwardingFolderReader::Identity();
    }

  private:
    ObservedFileSystem& observer_;
    FileCall call_;
};

class ObservedStream : public ForwardingTextStream {
  public:
    ObservedStream(std::unique_ptr<TextStream> target, ObservedFileSystem& observer,
                   std::wstring path)
        : ForwardingTextStream(std::move(target)), observer_(observer), path_(std::move(path)) {}

    void WriteLine(const std::wstring& text) override {
        observer_.Before({FileOperation::WriteLine, path_});
        ForwardingTextStream::WriteLine(text);
    }
    void Flush() override {
        observer_.Before({FileOperation::Flush, path_});
        ForwardingTextStream::Flush();
    }

  private:
    ObservedFileSystem& observer_;
    std::wstring path_;
};

}  // namespace

bool ObservedFileSystem::FileExists(const std::wstring& path) {
    return Before({FileOperation::FileExists, path}) && ForwardingFileSystem::FileExists(path);
}

bool ObservedFileSystem::FolderExists(const std::wstring& path) {
    return Before({FileOperation::FolderExists, path}) && ForwardingFileSystem::FolderExists(path);
}

FileEntry ObservedFileSystem::GetFile(const std::wstring& path) {
    Before({FileOperation::GetFile, path});
    return ForwardingFileSystem::GetFile(path);
}

std::optional<FileEntry> ObservedFileSystem::FindFile(const std::wstring& path) {
    if (!Before({FileOperation::FindFile, path})) {
        return std::nullopt;
    }
    return ForwardingFileSystem::FindFile(path);
}

std::unique_ptr<FolderReader> ObservedFileSystem::GetFolder(const std::wstring& path) {
    Before({FileOperation::GetFolder, path});
    return std::make_unique<ObservedReader>(ForwardingFileSystem::GetFolder(path), *this, path);
}

std::optional<FileIdentity> ObservedFileSystem::IdentityOf(const std::wstring& folder) {
    if (!Before({FileOperation::IdentityOf, folder})) {
        return std::nullopt;
    }
    return ForwardingFileSystem::IdentityOf(folder);
}

void ObservedFileSystem::CreateFolder(const std::wstring& path) {
    Before({FileOperation::CreateFolder, path});
    ForwardingFileSystem::CreateFolder(path);
}

void ObservedFileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    Before({FileOperation::SetAttributes, path});
    ForwardingFileSystem::SetAttributes(path, attributes);
}

void ObservedFileSystem::DeleteFile(const std::wstring& path, bool force) {
    Before({FileOperation::DeleteFile, path});
    ForwardingFileSystem::DeleteFile(path, force);
}

void ObservedFileSystem::CopyFile(const std::wstring& source, const std::wstring& destination,
                                  bool overwrite, const Yield& yield) {
    Before({FileOperation::CopyFile, source, destination});
    ForwardingFileSystem::CopyFile(source, destination, overwrite, yield);
}

std::unique_ptr<TextStream> ObservedFileSystem::OpenForAppending(const std::wstring& path) {
    Before({FileOperation::OpenForAppending, path});
    return std::make_unique<ObservedStream>(ForwardingFileSystem::OpenForAppending(path), *this,
                                            path);
}

bool ObservedFileSystem::IsWritableFolder(const std::wstring& path, const std::wstring& file) {
    return Before({FileOperation::IsWritableFolder, path}) &&
           ForwardingFileSystem::IsWritableFolder(path, file);
}

bool ObservedFileSystem::MayFollow(const std::wstring& folder) {
    return Before({FileOperation::MayFollow, folder}) && ForwardingFileSystem::MayFollow(folder);
}

}  // namespace ambrio
