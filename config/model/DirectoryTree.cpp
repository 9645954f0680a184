#include "config/model/DirectoryTree.h"

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

constexpr wchar_t kSeparator = L'\\';

// The length of the part that has no ancestor: "C:\" or "\\server\share\", with its separator if
// the path has one there.
std::size_t RootLength(const std::wstring& path) {
    constexpr std::size_t kUncMark = 2;
    if (path.compare(0, kUncMark, L"\\\\") != 0) {
        const auto separator = path.find(kSeparator);
        return separator == std::wstring::npos ? path.size() : separator + 1;
    }
    const auto server = path.find(kSeparator, kUncMark);
    const auto share = server == std::wstring::npos ? server : path.find(kSeparator, server + 1);
    return share == std::wstring::npos ? path.size() : share + 1;
}

// The rows from the root down to the path itself.
std::vector<DirectoryRow> RowsDownTo(const std::wstring& path) {
    const std::size_t root = RootLength(path);
    std::vector<DirectoryRow> rows{{path.substr(0, root), path.substr(0, root), 0, true}};
    for (std::size_t begin = root; begin < path.size();) {
        const std::size_t end = std::min(path.find(kSeparator, begin), path.size());
        if (end > begin) {
            rows.push_back({path.substr(begin, end - begin), path.substr(0, end),
                            static_cast<int>(rows.size()), true});
        }
        begin = end + 1;
    }
    return rows;
}

}  // namespace

std::vector<std::wstring> DirectoryTree::SubdirectoriesOf(const std::wstring& path) {
    constexpr FileAttributes kSystemsOwn = kAttributeHidden | kAttributeSystem;
    std::vector<std::pair<std::wstring, std::wstring>> found;  // the folded name sorts
    const auto reader = fileSystem_.GetFolder(path);
    FileEntry entry;
    while (reader->Next(entry)) {
        if (entry.IsFolder() && (entry.Attributes & kSystemsOwn) != kSystemsOwn) {
            found.emplace_back(fileSystem_.FoldedName(entry.Name), entry.Name);
        }
    }
    std::sort(found.begin(), found.end());
    std::vector<std::wstring> names;
    names.reserve(found.size());
    for (auto& [folded, name] : found) {
        names.push_back(std::move(name));
    }
    return names;
}

void DirectoryTree::Open(const std::wstring& path) {
    if (path.empty()) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    std::vector<DirectoryRow> rows = RowsDownTo(path);
    const std::wstring plainPath = rows.back().Path;
    const std::size_t openRow = rows.size() - 1;
    for (const std::wstring& name : SubdirectoriesOf(plainPath)) {
        rows.push_back(
            {name, FileSystem::BuildPath(plainPath, name), static_cast<int>(openRow) + 1, false});
    }
    path_ = plainPath;
    rows_ = std::move(rows);
    openRow_ = openRow;
}

}  // namespace ambrio
