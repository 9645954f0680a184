#include "engine/DestinationListing.h"

#include "engine/SourceListing.h"
#include "platform/RuntimeError.h"
#include "platform/TemporaryName.h"

namespace ambrio {

DestinationListing::DestinationListing(FileSystem& fileSystem, const std::wstring& rsSourceDir,
                                       const std::wstring& rsDestnDir)
    : fileSystem_(fileSystem),
      source_(fileSystem, rsSourceDir),
      destination_(fileSystem, rsDestnDir) {}

void DestinationListing::Fetch(RunHost& host, const RunSignals& signals) {
    try {
        const std::unique_ptr<FolderReader> reader = fileSystem_.GetFolder(destination_.Path());
        FileEntry entry;
        for (int count = 1; reader->Next(entry); ++count) {
            Add(entry);
            if (count % kEntriesBetweenYields == 0) {
                host.DoEvents();
            }
            if (signals.Interrupted) {
                ForgetAll();
                return;
            }
        }
        isListed_ = true;
    } catch (const RuntimeError&) {
        ForgetAll();
    }
}

void DestinationListing::Add(const FileEntry& entry) {
    if (entry.IsFolder()) {
        return;
    }
    copies_[fileSystem_.FoldedName(entry.Name)] = {entry.Attributes, entry.DateLastModified};
    if (IsTemporaryName(entry.Name)) {
        leftovers_.push_back(entry.Name);
    }
}

void DestinationListing::ForgetAll() {
    copies_.clear();
    leftovers_.clear();
}

std::wstring DestinationListing::PathOf(const std::wstring& name) const {
    return FileSystem::BuildPath(destination_.Path(), name);
}

std::optional<FileEntry> DestinationListing::Listed(const std::wstring& name) const {
    const auto copy = copies_.find(fileSystem_.FoldedName(name));
    if (copy == copies_.end()) {
        return std::nullopt;
    }
    FileEntry entry;
    entry.Name = name;
    entry.Attributes = copy->second.Attributes;
    entry.DateLastModified = copy->second.DateLastModified;
    return entry;
}

bool DestinationListing::MayHold(const std::wstring& name) const {
    return !isListed_ || copies_.contains(fileSystem_.FoldedName(name));
}

void DestinationListing::Note(const std::wstring& name) {
    if (isNew_) {
        made_.insert(fileSystem_.FoldedName(name));
    }
}

std::optional<FileEntry> DestinationListing::Ask(const std::wstring& name) const {
    if (isNew_ && !made_.contains(fileSystem_.FoldedName(name))) {
        return std::nullopt;
    }
    return fileSystem_.FindFile(PathOf(name));
}

}  // namespace ambrio
