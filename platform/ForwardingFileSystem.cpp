#include "platform/ForwardingFileSystem.h"

#include <utility>

namespace ambrio {

bool ForwardingFileSystem::FileExists(const std::wstring& path) {
    return target_.FileExists(path);
}

bool ForwardingFileSystem::FolderExists(const std::wstring& path) {
    return target_.FolderExists(path);
}

FileEntry ForwardingFileSystem::GetFile(const std::wstring& path) {
    return target_.GetFile(path);
}

std::optional<FileEntry> ForwardingFileSystem::FindFile(const std::wstring& path) {
    return target_.FindFile(path);
}

std::unique_ptr<FolderReader> ForwardingFileSystem::GetFolder(const std::wstring& path) {
    return target_.GetFolder(path);
}

std::optional<FileIdentity> ForwardingFileSystem::IdentityOf(const std::wstring& path) {
    return target_.IdentityOf(path);
}

bool ForwardingFileSystem::FindsFoldedNames(const std::wstring& folder) {
    return target_.FindsFoldedNames(folder);
}

void ForwardingFileSystem::CreateFolder(const std::wstring& path) {
    target_.CreateFolder(path);
}

void ForwardingFileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    target_.SetAttributes(path, attributes);
}

void ForwardingFileSystem::DeleteFile(const std::wstring& path, bool force) {
    target_.DeleteFile(path, force);
}

void ForwardingFileSystem::CopyFile(const std::wstring& source, const std::wstring& destination,
                                    bool overwrite, const Yield& yield) {
    target_.CopyFile(source, destination, overwrite, yield);
}

std::unique_ptr<PreparedCopy> ForwardingFileSystem::PrepareCopy(
    const ExpectedCopy& copy, const std::function<bool()>& isWanted) {
    return target_.PrepareCopy(copy, isWanted);
}

std::optional<std::uint64_t> ForwardingFileSystem::FreeBytes(const std::wstring& folder) {
    return target_.FreeBytes(folder);
}

void ForwardingFileSystem::ExpectCopies(const std::vector<ExpectedCopy>& copies) {
    target_.ExpectCopies(copies);
}

void ForwardingFileSystem::ExpectNothing() {
    target_.ExpectNothing();
}

void ForwardingFileSystem::EndExpecting() {
    target_.EndExpecting();
}

std::unique_ptr<TextStream> ForwardingFileSystem::OpenForAppending(const std::wstring& path) {
    return target_.OpenForAppending(path);
}

bool ForwardingFileSystem::IsWritableFolder(const std::wstring& path, const std::wstring& file) {
    return target_.IsWritableFolder(path, file);
}

bool ForwardingFileSystem::MayFollow(const std::wstring& folder) {
    return target_.MayFollow(folder);
}

std::wstring ForwardingFileSystem::FoldedName(const std::wstring& name) const {
    return target_.FoldedName(name);
}

ForwardingFolderReader::ForwardingFolderReader(std::unique_ptr<FolderReader> target)
    : target_(std::move(target)) {}

bool ForwardingFolderReader::Next(FileEntry& entry) {
    return target_->Next(entry);
}

std::optional<FileIdentity> ForwardingFolderReader::Identity() {
    return target_->Identity();
}

ForwardingTextStream::ForwardingTextStream(std::unique_ptr<TextStream> target)
    : target_(std::move(target)) {}

void ForwardingTextStream::WriteLine(const std::wstring& text) {
    target_->WriteLine(text);
}

void ForwardingTextStream::Flush() {
    target_->Flush();
}

}  // namespace ambrio
