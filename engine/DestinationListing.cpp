#include "engine/DestinationListing.h"

#include "engine/ListingYield.h"
#include "platform/RuntimeError.h"
#include "platform/TemporaryName.h"

namespace ambrio {

DestinationListing::DestinationListing(FileSystem& fileSystem, const WalkedFolder& folder)
    : fileSystem_(fileSystem), folder_(folder) {}

void DestinationListing::Fetch(RunHost& host, const RunSignals& signals) {
    try {
        const std::unique_ptr<FolderReader> reader =
            fileSystem_.GetFolder(folder_.Destination().Path());
        ListingYield yield(host);
        FileEntry entry;
        while (reader->Next(entry)) {
            Add(entry);
            yield.CountEntry();
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
    Copy copy{entry.Name, entry.Attributes, entry.DateLastModified, true};
    const auto [place, isFirst] =
        copies_.try_emplace(fileSystem_.FoldedName(entry.Name), std::move(copy));
    if (!isFirst) {
        place->second.IsCertain = false;
    }
    if (IsTemporaryName(entry.Name)) {
        leftovers_.push_back(entry.Name);
    }
}

void DestinationListing::ForgetAll() {
    copies_.clear();
    leftovers_.clear();
}

std::wstring DestinationListing::PathOf(const std::wstring& name) const {
    return FileSystem::BuildPath(folder_.Destination().Path(), name);
}

std::optional<FileEntry> DestinationListing::Listed(const std::wstring& name) const {
    const auto copy = copies_.find(fileSystem_.FoldedName(name));
    if (copy == copies_.end() || !copy->second.IsCertain ||
        (copy->second.Name != name && !FindsFoldedNames())) {
        return std::nullopt;
    }
    FileEntry entry;
    entry.Name = name;
    entry.Attributes = copy->second.Attributes;
    entry.DateLastModified = copy->second.DateLastModified;
    return entry;
}

bool DestinationListing::IsProbablyBehind(const FileEntry& source) const {
    if (!isListed_ || source.IsFolder() || source.IsLink() ||
        !folder_.Set().Rule.Qualifies(source.Attributes)) {
        return false;
    }
    const auto copy = copies_.find(fileSystem_.FoldedName(source.Name));
    return copy == copies_.end() || (copy->second.Name == source.Name &&
                                     (copy->second.Attributes & kAttributeReadOnly) == 0 &&
                                     source.DateLastModified > copy->second.DateLastModified);
}

std::optional<std::wstring> DestinationListing::OtherSpelling(const std::wstring& name) const {
    const auto copy = copies_.find(fileSystem_.FoldedName(name));
    if (copy == copies_.end() || copy->second.Name == name) {
        return std::nullopt;
    }
    return copy->second.Name;
}

bool DestinationListing::MayHold(const std::wstring& name) const {
    return !isListed_ || copies_.contains(fileSystem_.FoldedName(name)) || !FindsFoldedNames();
}

void DestinationListing::Note(const std::wstring& name) {
    copies_.insert_or_assign(fileSystem_.FoldedName(name), Copy{name});
}

std::optional<FileEntry> DestinationListing::Ask(const std::wstring& name) const {
    if (isNew_ && !copies_.contains(fileSystem_.FoldedName(name))) {
        return std::nullopt;
    }
    return fileSystem_.FindFile(PathOf(name));
}

bool DestinationListing::FindsFoldedNames() const {
    if (!findsFoldedNames_) {
        findsFoldedNames_ = fileSystem_.FindsFoldedNames(folder_.Destination().Path());
    }
    return *findsFoldedNames_;
}

bool DestinationListing::IsSourceItself() const {
    return folder_.Source().Is(folder_.Destination());
}

}  // namespace ambrio
