#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/FileSystem.h"

namespace ambrio {

// One drive or network share of the in-memory file system.
struct MemoryVolume {
    std::uint64_t Id = 0;
    std::wstring Name;  // "C:" or "\\server\share"
    bool Present = true;
    bool Ready = true;
    bool TellsCasesApart = false;
    bool NumbersNothing = false;         // files have no identity but their path
    std::optional<std::uint64_t> Quota;  // bytes of content that fit; nothing: no limit
    std::uint64_t Used = 0;

    // Throws PathNotFound when the volume has gone, DiskNotReady when it is not ready.
    void RequireReady() const;
    // Accounts for content that grows or shrinks; DiskFull when it does not fit.
    void Resize(std::uint64_t before, std::uint64_t after);
};

// One file or folder of it. A folder keeps its children in the order in which they came.
class MemoryNode {
  public:
    MemoryNode(MemoryVolume& volume, std::wstring name, FileAttributes attributes);
    ~MemoryNode();
    MemoryNode(const MemoryNode&) = delete;
    MemoryNode& operator=(const MemoryNode&) = delete;

    using Pointer = std::shared_ptr<MemoryNode>;
    using Children = std::map<std::uint64_t, Pointer>;

    MemoryVolume& Volume;
    std::wstring Name;
    FileAttributes Attributes;
    FileSeconds DateLastModified = 0;
    std::uint64_t Id = 0;
    std::wstring LinkTarget;  // of a link
    bool IsMountPoint = false;
    bool IsOfAnotherUser = false;  // of a link
    bool Locked = false;           // another process has it open and shares nothing
    bool ListingDenied = false;    // of a folder
    bool WritingDenied = false;    // of a folder: nothing new can be made in it
    int OpenStreams = 0;           // streams of this process

    [[nodiscard]] bool IsFolder() const { return (Attributes & kAttributeDirectory) != 0; }
    [[nodiscard]] bool IsLink() const { return (Attributes & kAttributeLink) != 0; }
    [[nodiscard]] bool IsReadOnly() const { return (Attributes & kAttributeReadOnly) != 0; }

    [[nodiscard]] const std::string& Content() const { return content_; }
    // The size that is reported; above Content's for a file that only pretends to be big.
    [[nodiscard]] std::uint64_t Size() const;
    // Throws DiskFull; the content is then the old one.
    void SetContent(std::string content);
    void Append(std::string_view bytes);
    void PretendSize(std::uint64_t size) { pretendedSize_ = size; }

    // What a listing says of it.
    [[nodiscard]] FileEntry Entry() const;
    [[nodiscard]] FileIdentity Identity() const;

    // The child of that name, in whatever case unless the volume tells cases apart, or nothing.
    [[nodiscard]] Pointer Child(const std::wstring& name) const;
    void Add(const Pointer& child);
    // Renames a child; it takes the place of a child that has the new name already.
    void Rename(const Pointer& child, const std::wstring& newName);
    void Remove(const Pointer& child);
    // In the order of the listing; keys only grow, so that a walk can go on after any change.
    [[nodiscard]] const Children& ByOrder() const { return byOrder_; }

  private:
    [[nodiscard]] std::wstring KeyOf(const std::wstring& name) const;

    std::string content_;
    std::uint64_t pretendedSize_ = 0;
    Children byOrder_;
    std::unordered_map<std::wstring, std::uint64_t> orderOfName_;
    std::uint64_t nextOrder_ = 0;
};

}  // namespace ambrio
