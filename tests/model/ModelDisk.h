#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace ambrio {

// A file, or a folder with what is in it, in the order of its listing.
struct ModelNode {
    std::wstring Name;
    bool IsFolder = false;
    std::string Content = {};
    FileAttributes Attributes = 0;  // of a file
    FileSeconds Time = 0;           // of a file
    std::vector<ModelNode> Children = {};

    [[nodiscard]] bool IsReadOnly() const { return (Attributes & kAttributeReadOnly) != 0; }
};

// A drive as the reference model sees it: no links, and names are spelled in one way. An operation
// that fails gives its number and changes nothing.
class ModelDisk {
  public:
    using Result = std::optional<ErrorNumber>;  // nothing: it worked

    ModelDisk() : root_{L"C:", true} {}
    explicit ModelDisk(std::vector<ModelNode> content)
        : root_{L"C:", true, {}, 0, 0, std::move(content)} {}

    // Nothing when there is none.
    [[nodiscard]] const ModelNode* File(const std::wstring& path) const;
    [[nodiscard]] const ModelNode* Folder(const std::wstring& path) const;

    Result MakeFolder(const std::wstring& path);
    Result Remove(const std::wstring& path, bool force);
    Result Copy(const std::wstring& source, const std::wstring& destination);
    // Of a file that exists.
    void SetAttributes(const std::wstring& path, FileAttributes attributes);
    // Opens the file at its end, and makes it when there is none.
    Result Open(const std::wstring& path, FileSeconds now);
    // Of a file that was opened.
    void Append(const std::wstring& path, const std::string& bytes, FileSeconds now);

    // By path, one text for each file and folder with all that is known of it.
    [[nodiscard]] std::map<std::wstring, std::wstring> Facts() const;

  private:
    [[nodiscard]] const ModelNode* Find(const std::wstring& path) const;
    [[nodiscard]] ModelNode* Find(const std::wstring& path);
    // The folder that holds the path, or nothing.
    [[nodiscard]] ModelNode* FolderOf(const std::wstring& path);

    ModelNode root_;
};

// The path of what is in a folder.
[[nodiscard]] std::wstring PathBelow(const std::wstring& folder, const std::wstring& name);

}  // namespace ambrio
