#include "tests/support/MemoryFileSystem.h"

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/TemporaryName.h"
#include "tests/support/MemoryHandles.h"
#include "tests/support/MemoryPreparedCopy.h"
#include "tests/support/NameFolding.h"

namespace ambrio {
namespace {

constexpr int kMostLinks = 31;
constexpr std::size_t kChunk = 1 << 20;
constexpr FileAttributes kSettable = 0x1A31A7;  // read-only to archive, temporary, pinned, ...

[[noreturn]] void Fail(ErrorNumber number) {
    throw RuntimeError(number);
}

void RequireFree(const MemoryNode& node) {
    if (node.Locked || node.OpenStreams > 0) {
        Fail(ErrorNumber::PermissionDenied);
    }
}

void RequireWritable(const MemoryNode& folder) {
    if (folder.WritingDenied) {
        Fail(ErrorNumber::PermissionDenied);
    }
}

// What stands in the way of a copy; `old` is what has the destination name now, if anything.
void RequireReplaceable(const MemoryNode::Pointer& old, const MemoryNode::Pointer& source,
                        bool overwrite) {
    if (!old) {
        return;
    }
    if (!overwrite) {
        Fail(ErrorNumber::FileAlreadyExists);
    }
    if (old->IsFolder() || old->IsReadOnly() || old == source) {
        Fail(ErrorNumber::PermissionDenied);
    }
}

}  // namespace

MemoryFileSystem::MemoryFileSystem() {
    SetVolume(L"C:", true);
}

bool MemoryFileSystem::FileExists(const std::wstring& path) {
    try {
        return !Find(path, LastLink::Keep)->IsFolder();
    } catch (const RuntimeError&) {
        return false;
    }
}

bool MemoryFileSystem::FolderExists(const std::wstring& path) {
    try {
        return Find(path, LastLink::Keep)->IsFolder();
    } catch (const RuntimeError&) {
        return false;
    }
}

FileEntry MemoryFileSystem::GetFile(const std::wstring& path) {
    const MemoryNode::Pointer file = RequireFile(path);
    FileEntry entry = file->Entry();
    entry.IsOfAnotherUser = file->IsLink() && file->IsOfAnotherUser;
    if (!file->IsLink() || entry.IsOfAnotherUser) {
        return entry;
    }
    try {
        entry = RequireFile(file->LinkTarget)->Entry();
        entry.Name = file->Name;
    } catch (const RuntimeError&) {
        // A link that leads nowhere is described by itself.
        return entry;
    }
    return entry;
}

std::optional<FileEntry> MemoryFileSystem::FindFile(const std::wstring& path) {
    return FileExists(path) ? std::optional(GetFile(path)) : std::nullopt;
}

std::unique_ptr<FolderReader> MemoryFileSystem::GetFolder(const std::wstring& path) {
    const MemoryNode::Pointer folder = RequireFolder(path);
    if (folder->ListingDenied) {
        Fail(ErrorNumber::PermissionDenied);
    }
    return std::make_unique<MemoryFolderReader>(folder, openHandles_);
}

std::optional<FileIdentity> MemoryFileSystem::IdentityOf(const std::wstring& path) {
    const MemoryNode::Pointer node = FindIfThere(path, LastLink::Follow);
    if (!node) {
        Fail(ErrorNumber::PathNotFound);
    }
    return node->Identity();
}

bool MemoryFileSystem::FindsFoldedNames(const std::wstring& folder) {
    try {
        const MemoryVolume& volume = RequireFolder(folder)->Volume;
        return !volume.TellsCasesApart && !volume.Name.starts_with(L"\\\\");
    } catch (const RuntimeError&) {
        return false;
    }
}

void MemoryFileSystem::CreateFolder(const std::wstring& path) {
    if (FindIfThere(path, LastLink::Keep)) {
        Fail(ErrorNumber::FileAlreadyExists);
    }
    const Place place = PlaceOf(path);
    RequireWritable(*place.Folder);
    place.Folder->Add(NewNode(place.Folder->Volume, place.Name, kAttributeDirectory));
}

void MemoryFileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    MemoryNode& node = *Find(path, LastLink::Keep);
    node.Attributes = (node.Attributes & ~kSettable) | (attributes & kSettable);
}

void MemoryFileSystem::DeleteFile(const std::wstring& path, bool force) {
    const MemoryNode::Pointer file = RequireFile(path);
    RequireFree(*file);
    if (file->IsReadOnly() && !force) {
        Fail(ErrorNumber::PermissionDenied);
    }
    PlaceOf(path).Folder->Remove(file);
}

void MemoryFileSystem::CopyFile(const std::wstring& source, const std::wstring& destination,
                                bool overwrite, const Yield& yield) {
    const MemoryNode::Pointer from = FindIfThere(source, LastLink::Follow);
    if (!from || from->IsFolder()) {
        Fail(ErrorNumber::FileNotFound);
    }
    if (!MayFollow(source)) {
        Fail(ErrorNumber::PathFileAccessError);
    }
    const Place place = PlaceOf(destination);
    RequireReplaceable(place.Folder->Child(place.Name), from, overwrite);
    if (from->Locked) {
        Fail(ErrorNumber::PermissionDenied);
    }
    RequireWritable(*place.Folder);
    const Place temporary{place.Folder, TemporaryName(nextId_, ProcessId)};
    const MemoryNode::Pointer copy = CopyUnder(from, temporary, yield);
    if (BeforeRename) {
        BeforeRename();
    }
    if (place.Folder->Child(temporary.Name) != copy) {
        Fail(ErrorNumber::FileNotFound);  // somebody else has removed it
    }
    try {
        place.Folder->Volume.RequireReady();
        const MemoryNode::Pointer old = place.Folder->Child(place.Name);
        RequireReplaceable(old, from, overwrite);
        if (old) {
            RequireFree(*old);
        }
    } catch (const RuntimeError&) {
        if (place.Folder->Volume.Present && place.Folder->Volume.Ready) {
            place.Folder->Remove(copy);
        }
        throw;
    }
    place.Folder->Rename(copy, place.Name);
}

std::unique_ptr<PreparedCopy> MemoryFileSystem::PrepareCopy(const ExpectedCopy& what,
                                                            const std::function<bool()>& isWanted) {
    try {
        const MemoryNode::Pointer from = RequireFile(what.Source);
        const Place place = PlaceOf(what.Destination);
        const MemoryNode::Pointer old = place.Folder->Child(place.Name);
        if (from->IsLink() || from->Locked || from->Size() > what.Size || (old && old->IsLink()) ||
            !isWanted()) {
            return nullptr;
        }
        if (!what.SeemsNew) {
            RequireReplaceable(old, from, true);
        }
        RequireWritable(*place.Folder);
        MemoryNode::Pointer copy =
            CopyUnder(from, {place.Folder, TemporaryName(nextId_, ProcessId)}, {});
        return std::make_unique<MemoryPreparedCopy>(*this, what, place.Folder, std::move(copy));
    } catch (const RuntimeError&) {
        return nullptr;
    }
}

std::optional<std::uint64_t> MemoryFileSystem::FreeBytes(const std::wstring& folder) {
    try {
        const MemoryVolume& volume = RequireFolder(folder)->Volume;
        return volume.Quota ? std::optional(*volume.Quota - volume.Used) : std::nullopt;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

MemoryNode::Pointer MemoryFileSystem::CopyUnder(const MemoryNode::Pointer& source,
                                                const Place& temporary, const Yield& yield) {
    MemoryVolume& volume = temporary.Folder->Volume;
    MemoryNode::Pointer copy = NewNode(volume, temporary.Name, source->Attributes);
    temporary.Folder->Add(copy);
    copy->PretendSize(source->Size());
    const std::string content = source->Content();
    try {
        for (std::size_t done = 0; done < content.size(); done += kChunk) {
            volume.RequireReady();
            source->Volume.RequireReady();
            copy->Append(std::string_view(content).substr(done, kChunk));
            if (yield) {
                yield();
            }
        }
    } catch (const RuntimeError&) {
        if (volume.Present && volume.Ready) {
            temporary.Folder->Remove(copy);
        }
        throw;
    }
    copy->Attributes |= kAttributeArchive;
    copy->DateLastModified = source->DateLastModified;
    return copy;
}

std::unique_ptr<TextStream> MemoryFileSystem::OpenForAppending(const std::wstring& path) {
    MemoryNode::Pointer file = FindIfThere(path, LastLink::Follow);
    if (!file) {
        const Place place = PlaceOf(path);
        RequireWritable(*place.Folder);
        file = NewNode(place.Folder->Volume, place.Name, kAttributeArchive);
        place.Folder->Add(file);
    }
    if (file->IsFolder() || file->IsReadOnly() || file->Locked) {
        Fail(ErrorNumber::PermissionDenied);
    }
    return std::make_unique<MemoryTextStream>(*this, file);
}

bool MemoryFileSystem::IsWritableFolder(const std::wstring& path, const std::wstring& file) {
    try {
        const MemoryNode::Pointer folder = Find(path, LastLink::Follow);
        if (!folder->IsFolder() || folder->WritingDenied) {
            return false;
        }
        const MemoryNode::Pointer old = folder->Child(file);
        return !old || !(old->IsFolder() || old->IsReadOnly() || old->Locked);
    } catch (const RuntimeError&) {
        return false;
    }
}

bool MemoryFileSystem::MayFollow(const std::wstring& folder) {
    try {
        const MemoryNode::Pointer node = Find(folder, LastLink::Keep);
        return !node->IsLink() || !node->IsOfAnotherUser;
    } catch (const RuntimeError&) {
        return true;
    }
}

std::wstring MemoryFileSystem::FoldedName(const std::wstring& name) const {
    return FoldNameForTest(name);
}

MemoryNode::Pointer MemoryFileSystem::NewNode(MemoryVolume& volume, const std::wstring& name,
                                              FileAttributes attributes) {
    auto node = std::make_shared<MemoryNode>(volume, name, attributes);
    node->Id = nextId_++;
    node->DateLastModified = Now;
    return node;
}

MemoryNode::Pointer MemoryFileSystem::RootOf(const MemoryPath& path) const {
    const auto volume = volumes_.find(FoldNameForTest(path.Root));
    if (volume == volumes_.end()) {
        Fail(ErrorNumber::PathNotFound);
    }
    volume->second->RequireReady();
    return roots_.at(volume->second->Id);
}

MemoryNode::Pointer MemoryFileSystem::Find(const std::wstring& path, LastLink last) const {
    return Walk(MemoryPath::Parse(path, L"C:\\"), last);
}

MemoryNode::Pointer MemoryFileSystem::Walk(const MemoryPath& path, LastLink last,
                                           int linksFollowed) const {
    if (linksFollowed > kMostLinks) {
        Fail(ErrorNumber::PathFileAccessError);
    }
    MemoryNode::Pointer node = RootOf(path);
    for (std::size_t i = 0; i < path.Names.size(); ++i) {
        const bool isLast = i + 1 == path.Names.size();
        if (!node->IsFolder()) {
            Fail(ErrorNumber::PathNotFound);
        }
        if (!IsPossibleName(path.Names[i])) {
            Fail(ErrorNumber::BadFileNameOrNumber);
        }
        node = node->Child(path.Names[i]);
        if (!node) {
            Fail(isLast ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
        }
        if (node->IsLink() && (!isLast || last == LastLink::Follow)) {
            node = Walk(MemoryPath::Parse(node->LinkTarget, L"C:\\"), LastLink::Follow,
                        linksFollowed + 1);
        }
    }
    return node;
}

MemoryNode::Pointer MemoryFileSystem::FindIfThere(const std::wstring& path, LastLink last) const {
    try {
        return Find(path, last);
    } catch (const RuntimeError& error) {
        if (error.Number() != ErrorNumber::FileNotFound) {
            throw;
        }
        return nullptr;
    }
}

MemoryNode::Pointer MemoryFileSystem::RequireFile(const std::wstring& path) const {
    MemoryNode::Pointer node = Find(path, LastLink::Keep);
    if (node->IsFolder()) {
        Fail(ErrorNumber::FileNotFound);
    }
    return node;
}

MemoryNode::Pointer MemoryFileSystem::RequireFolder(const std::wstring& path) const {
    MemoryNode::Pointer node = FindIfThere(path, LastLink::Follow);
    if (!node || !node->IsFolder()) {
        Fail(ErrorNumber::PathNotFound);
    }
    return node;
}

MemoryFileSystem::Place MemoryFileSystem::PlaceOf(const std::wstring& path) const {
    MemoryPath parsed = MemoryPath::Parse(path, L"C:\\");
    if (parsed.Names.empty()) {
        Fail(parsed.Root.empty() ? ErrorNumber::PathNotFound : ErrorNumber::PermissionDenied);
    }
    const std::wstring name = parsed.Names.back();
    parsed.Names.pop_back();
    MemoryNode::Pointer folder;
    try {
        folder = Walk(parsed, LastLink::Follow);
    } catch (const RuntimeError& error) {
        Fail(error.Number() == ErrorNumber::FileNotFound ? ErrorNumber::PathNotFound
                                                         : error.Number());
    }
    if (!folder->IsFolder()) {
        Fail(ErrorNumber::PathNotFound);
    }
    if (!IsPossibleName(name)) {
        Fail(ErrorNumber::BadFileNameOrNumber);
    }
    return {folder, name};
}

}  // namespace ambrio
