// The side of MemoryFileSystem that arranges and inspects.

#include <algorithm>
#include <array>
#include <utility>

#include "platform/RuntimeError.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/NameFolding.h"

namespace ambrio {
namespace {

constexpr std::size_t kLongestShownContent = 64;

struct Letter {
    FileAttributes Attribute;
    wchar_t Sign;
};

constexpr std::array<Letter, 6> kLetters{{{kAttributeDirectory, L'D'},
                                          {kAttributeReadOnly, L'R'},
                                          {kAttributeHidden, L'H'},
                                          {kAttributeSystem, L'S'},
                                          {kAttributeArchive, L'A'},
                                          {kAttributeLink, L'L'}}};

std::wstring Letters(FileAttributes attributes) {
    std::wstring text;
    for (const Letter& letter : kLetters) {
        text += (attributes & letter.Attribute) != 0 ? letter.Sign : L'-';
    }
    return text;
}

std::wstring ShownContent(const std::string& content) {
    if (content.size() <= kLongestShownContent) {
        std::wstring shown;
        for (const char byte : content) {
            shown += static_cast<wchar_t>(static_cast<unsigned char>(byte));
        }
        return shown;
    }
    std::uint64_t sum = 0xcbf29ce484222325U;
    for (const char byte : content) {
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    }
    return std::to_wstring(content.size()) + L" bytes, " + std::to_wstring(sum);
}

void Release(MemoryNode& node) {
    for (const auto& [order, child] : node.ByOrder()) {
        Release(*child);
    }
    node.SetContent({});
}

}  // namespace

void MemoryFileSystem::SetVolume(const std::wstring& root, bool present, bool ready) {
    const std::wstring name = MemoryPath::Parse(root, L"C:\\").Root;
    std::unique_ptr<MemoryVolume>& volume = volumes_[FoldNameForTest(name)];
    if (!volume) {
        volume = std::make_unique<MemoryVolume>();
        volume->Id = volumes_.size();
        volume->Name = name;
        roots_[volume->Id] = NewNode(*volume, {}, kAttributeDirectory);
    }
    volume->Present = present;
    volume->Ready = ready;
}

void MemoryFileSystem::TellCasesApart(const std::wstring& root) {
    SetVolume(root, true);
    volumes_.at(FoldNameForTest(MemoryPath::Parse(root, L"C:\\").Root))->TellsCasesApart = true;
}

void MemoryFileSystem::SetQuota(const std::wstring& root, std::optional<std::uint64_t> bytes) {
    Find(root, LastLink::Keep)->Volume.Quota = bytes;
}

MemoryFileSystem::Place MemoryFileSystem::MakePlace(const std::wstring& path) {
    const MemoryPath parsed = MemoryPath::Parse(path, L"C:\\");
    MemoryNode::Pointer folder = RootOf(parsed);
    for (std::size_t i = 0; i + 1 < parsed.Names.size(); ++i) {
        MemoryNode::Pointer next = folder->Child(parsed.Names[i]);
        if (!next) {
            next = NewNode(folder->Volume, parsed.Names[i], kAttributeDirectory);
            folder->Add(next);
        } else if (next->IsLink()) {
            next = Find(next->LinkTarget, LastLink::Follow);
        }
        folder = next;
    }
    return {folder, parsed.Names.empty() ? std::wstring() : parsed.Names.back()};
}

void MemoryFileSystem::WriteFile(const std::wstring& path, const std::string& content,
                                 FileAttributes attributes, std::optional<FileSeconds> time) {
    const Place place = MakePlace(path);
    MemoryNode::Pointer file = place.Folder->Child(place.Name);
    if (!file) {
        file = NewNode(place.Folder->Volume, place.Name, attributes);
        place.Folder->Add(file);
    }
    file->SetContent(content);
    file->Attributes = attributes;
    file->DateLastModified = time.value_or(Now);
}

void MemoryFileSystem::MakeFolder(const std::wstring& path, FileAttributes attributes) {
    const Place place = MakePlace(path);
    if (place.Name.empty()) {
        return;
    }
    MemoryNode::Pointer folder = place.Folder->Child(place.Name);
    if (!folder) {
        folder = NewNode(place.Folder->Volume, place.Name, kAttributeDirectory);
        place.Folder->Add(folder);
    }
    folder->Attributes = attributes | kAttributeDirectory;
}

void MemoryFileSystem::MakeLink(const std::wstring& path, const std::wstring& target, LinkKind kind,
                                FileAttributes attributes) {
    const FileAttributes folder = kind == LinkKind::ToFile ? 0 : kAttributeDirectory;
    const Place place = MakePlace(path);
    const MemoryNode::Pointer link =
        NewNode(place.Folder->Volume, place.Name, attributes | folder | kAttributeLink);
    link->LinkTarget = target;
    link->IsMountPoint = kind == LinkKind::MountPoint;
    place.Folder->Add(link);
}

void MemoryFileSystem::Remove(const std::wstring& path) {
    const MemoryNode::Pointer node = Find(path, LastLink::Keep);
    Release(*node);
    PlaceOf(path).Folder->Remove(node);
}

void MemoryFileSystem::Rename(const std::wstring& path, const std::wstring& newName) {
    const MemoryNode::Pointer node = Find(path, LastLink::Keep);
    PlaceOf(path).Folder->Rename(node, newName);
}

MemoryNode& MemoryFileSystem::Node(const std::wstring& path) {
    return *Find(path, LastLink::Keep);
}

std::string MemoryFileSystem::Content(const std::wstring& path) {
    return Find(path, LastLink::Follow)->Content();
}

std::vector<std::wstring> MemoryFileSystem::Snapshot(const std::wstring& path) {
    std::vector<std::wstring> lines;
    AddSnapshot(*Find(path, LastLink::Follow), path, lines);
    std::sort(lines.begin(), lines.end());
    return lines;
}

void MemoryFileSystem::AddSnapshot(const MemoryNode& node, const std::wstring& path,
                                   std::vector<std::wstring>& lines) const {
    for (const auto& [order, child] : node.ByOrder()) {
        const std::wstring childPath = BuildPath(path, child->Name);
        std::wstring line = childPath + L" " + Letters(child->Attributes);
        if (child->IsLink()) {
            line += L" -> " + child->LinkTarget;
        } else if (!child->IsFolder()) {
            line += L" " + std::to_wstring(child->DateLastModified) + L" <" +
                    ShownContent(child->Content()) + L">";
        }
        lines.push_back(line);
        AddSnapshot(*child, childPath, lines);
    }
}

}  // namespace ambrio
