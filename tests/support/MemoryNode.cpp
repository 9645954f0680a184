#include "tests/support/MemoryNode.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/RuntimeError.h"
#include "tests/support/NameFolding.h"

namespace ambrio {

void MemoryVolume::RequireReady() const {
    if (!Present) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    if (!Ready) {
        throw RuntimeError(ErrorNumber::DiskNotReady);
    }
}

void MemoryVolume::Resize(std::uint64_t before, std::uint64_t after) {
    const std::uint64_t used = Used - before + after;
    if (after > before && Quota && used > *Quota) {
        throw RuntimeError(ErrorNumber::DiskFull);
    }
    Used = used;
}

MemoryNode::MemoryNode(MemoryVolume& volume, std::wstring name, FileAttributes attributes)
    : Volume(volume), Name(std::move(name)), Attributes(attributes) {}

// Level by level, because a tree as deep as the longest path would exhaust the stack.
MemoryNode::~MemoryNode() {
    std::vector<Children> levels;
    levels.push_back(std::move(byOrder_));
    while (!levels.empty()) {
        const Children level = std::move(levels.back());
        levels.pop_back();
        for (const auto& [order, child] : level) {
            if (child.use_count() == 1 && !child->byOrder_.empty()) {
                levels.push_back(std::move(child->byOrder_));
            }
        }
    }
}

std::uint64_t MemoryNode::Size() const {
    return std::max<std::uint64_t>(content_.size(), pretendedSize_);
}

void MemoryNode::SetContent(std::string content) {
    Volume.Resize(content_.size(), content.size());
    content_ = std::move(content);
}

void MemoryNode::Append(std::string_view bytes) {
    Volume.Resize(content_.size(), content_.size() + bytes.size());
    content_ += bytes;
}

FileEntry MemoryNode::Entry() const {
    return {Name, Attributes, DateLastModified, IsFolder() ? 0 : Size(), IsMountPoint};
}

FileIdentity MemoryNode::Identity() const {
    FileIdentity identity{Volume.Id, Id};
    identity.IsByPath = Volume.NumbersNothing;
    return identity;
}

std::wstring MemoryNode::KeyOf(const std::wstring& name) const {
    return Volume.TellsCasesApart ? name : FoldNameForTest(name);
}

MemoryNode::Pointer MemoryNode::Child(const std::wstring& name) const {
    const auto place = orderOfName_.find(KeyOf(name));
    return place == orderOfName_.end() ? nullptr : byOrder_.at(place->second);
}

void MemoryNode::Add(const Pointer& child) {
    const std::uint64_t order = nextOrder_++;
    orderOfName_[KeyOf(child->Name)] = order;
    byOrder_[order] = child;
}

void MemoryNode::Rename(const Pointer& child, const std::wstring& newName) {
    const Pointer replaced = Child(newName);
    if (replaced && replaced != child) {
        const auto from = orderOfName_.find(KeyOf(child->Name));
        byOrder_.erase(from->second);
        orderOfName_.erase(from);
        replaced->SetContent({});
        child->Name = newName;
        byOrder_[orderOfName_.at(KeyOf(newName))] = child;
        return;
    }
    const auto from = orderOfName_.find(KeyOf(child->Name));
    const std::uint64_t order = from->second;
    orderOfName_.erase(from);
    child->Name = newName;
    orderOfName_[KeyOf(newName)] = order;
}

void MemoryNode::Remove(const Pointer& child) {
    const auto place = orderOfName_.find(KeyOf(child->Name));
    byOrder_.erase(place->second);
    orderOfName_.erase(place);
    child->SetContent({});
}

}  // namespace ambrio
