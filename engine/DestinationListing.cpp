#include "engine/DestinationListing.h"

#include <utility>

#include "engine/ListingYield.h"
#include "platform/RuntimeError.h"
#include "platform/TemporaryName.h"

namespace ambrio {

DestinationListing::DestinationListing(FileSystem& fileSystem, const WalkedFolder& folder)
    : fileSystem_(fileSystem), folder_(folder) {}

void DestinationListing::Fetch(RunHost& host, const RunSignals& signals) {
    try {
        const std::unique_ptr<FolderReader> reader = folder_.Destination().GetListing();
        ListingYield yield(host);
        FileEntry entry;
        while (reader->Next(entry)) {
            Add(std::move(entry));
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

void DestinationListing::Add(FileEntry&& entry) {
    if (entry.IsFolder()) {
        return;
    }
    if (IsTemporaryName(entry.Name)) {
        leftovers_.push_back(entry.Name);
    }
    ForgetFound();
    std::wstring folded = fileSystem_.FoldedName(entry.Name);
    Copy copy{std::move(entry.Name), entry.Attributes, entry.DateLastModified, true};
    const auto [place, isFirst] = copies_.try_emplace(std::move(folded), std::move(copy));
    if (!isFirst) {
        place->second.IsCertain = false;
    }
}

const DestinationListing::Copy* DestinationListing::Find(const std::wstring& name) const {
    if (!isFound_ || foundName_ != name) {
        const auto copy = copies_.find(fileSystem_.FoldedName(name));
        found_ = copy == copies_.end() ? nullptr : &copy->second;
        foundName_ = name;
        isFound_ = true;
    }
    return found_;
}

void DestinationListing::ForgetAll() {
    ForgetFound();
    copies_.clear();
    leftovers_.clear();
}

std::wstring DestinationListing::PathOf(const std::wstring& name) const {
    return FileSystem::BuildPath(folder_.Destination().Path(), name);
}

std::optional<FileEntry> DestinationListing::Listed(const std::wstring& name) const {
    const Copy* const copy = Find(name);
    if (copy == nullptr || !copy->IsCertain || (copy->Name != name && !FindsFoldedNames())) {
        return std::nullopt;
    }
    FileEntry entry;
    entry.Attributes = copy->Attributes;
    entry.DateLastModified = copy->DateLastModified;
    return entry;
}

bool DestinationListing::IsProbablyBehind(const FileEntry& source) const {
    if (!isListed_ || source.IsFolder() || source.IsLink() ||
        !folder_.Set().Rule.Qualifies(source.Attributes)) {
        return false;
    }
    const Copy* const copy = Find(source.Name);
    return copy == nullptr ||
           (copy->Name == source.Name && (copy->Attributes & kAttributeReadOnly) == 0 &&
            source.DateLastModified > copy->DateLastModified);
}

std::optional<std::wstring> DestinationListing::OtherSpelling(const std::wstring& name) const {
    const Copy* const copy = Find(name);
    if (copy == nullptr || copy->Name == name) {
        return std::nullopt;
    }
    return copy->Name;
}

bool DestinationListing::MayHold(const std::wstring& name) const {
    return !isListed_ || Find(name) != nullptr || !FindsFoldedNames();
}

void DestinationListing::Forget(const std::wstring& name) {
    ForgetFound();
    copies_.erase(fileSystem_.FoldedName(name));
}

void DestinationListing::Note(const std::wstring& name) {
    ForgetFound();
    copies_.insert_or_assign(fileSystem_.FoldedName(name), Copy{name});
}

std::optional<FileEntry> DestinationListing::Ask(const std::wstring& name) const {
    if (isNew_ && Find(name) == nullptr) {
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
