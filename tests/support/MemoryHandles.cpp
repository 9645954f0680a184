#include "tests/support/MemoryHandles.h"

#include <utility>

#include "tests/support/MemoryFileSystem.h"
#include "tests/support/TestCodePage.h"

namespace ambrio {

MemoryFolderReader::MemoryFolderReader(MemoryNode::Pointer folder, int& openHandles)
    : folder_(std::move(folder)), openHandles_(openHandles) {
    ++openHandles_;
}

MemoryFolderReader::~MemoryFolderReader() {
    --openHandles_;
}

bool MemoryFolderReader::Next(FileEntry& entry) {
    folder_->Volume.RequireReady();
    const auto next = folder_->ByOrder().lower_bound(from_);
    if (next == folder_->ByOrder().end()) {
        return false;
    }
    from_ = next->first + 1;
    entry = next->second->Entry();
    return true;
}

std::optional<FileIdentity> MemoryFolderReader::Identity() {
    folder_->Volume.RequireReady();
    return folder_->Identity();
}

MemoryTextStream::MemoryTextStream(MemoryFileSystem& fileSystem, MemoryNode::Pointer file)
    : fileSystem_(fileSystem), file_(std::move(file)) {
    ++file_->OpenStreams;
    ++fileSystem_.openHandles_;
}

MemoryTextStream::~MemoryTextStream() {
    --file_->OpenStreams;
    --fileSystem_.openHandles_;
}

void MemoryTextStream::WriteLine(const std::wstring& text) {
    file_->Volume.RequireReady();
    file_->Append(TestCodePageBytes(text) + "\r\n");
    file_->Attributes |= kAttributeArchive;
    file_->DateLastModified = fileSystem_.Now;
}

// Memory is as safe as it will be.
void MemoryTextStream::Flush() {
    file_->Volume.RequireReady();
}

}  // namespace ambrio
