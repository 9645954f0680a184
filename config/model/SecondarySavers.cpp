#include "config/model/SecondarySavers.h"

#include <set>
#include <utility>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

const std::wstring kEnding = L".scr";

bool IsSaver(FileSystem& fileSystem, const FileEntry& entry) {
    if (entry.IsFolder() || entry.Name.size() < kEnding.size()) {
        return false;
    }
    const std::wstring ending = entry.Name.substr(entry.Name.size() - kEnding.size());
    return fileSystem.FoldedName(ending) == fileSystem.FoldedName(kEnding);
}

std::vector<std::wstring> SaversOf(FileSystem& fileSystem, const std::wstring& folder) {
    std::vector<std::wstring> names;
    try {
        const auto reader = fileSystem.GetFolder(folder);
        FileEntry entry;
        while (reader->Next(entry)) {
            if (IsSaver(fileSystem, entry)) {
                names.push_back(entry.Name.substr(0, entry.Name.size() - kEnding.size()));
            }
        }
    } catch (const RuntimeError&) {
        // What was listed so far can be offered; the rest of the dialog does not depend on it.
        return names;
    }
    return names;
}

}  // namespace

std::vector<std::wstring> SaversIn(FileSystem& fileSystem,
                                   const std::vector<std::wstring>& folders) {
    std::vector<std::wstring> names;
    std::set<std::wstring> known;
    for (const std::wstring& folder : folders) {
        for (std::wstring& name : SaversOf(fileSystem, folder)) {
            if (known.insert(fileSystem.FoldedName(name)).second) {
                names.push_back(std::move(name));
            }
        }
    }
    return names;
}

std::optional<std::wstring> SaverPath(FileSystem& fileSystem,
                                      const std::vector<std::wstring>& folders,
                                      const std::wstring& baseName) {
    for (const std::wstring& folder : folders) {
        std::wstring path = FileSystem::BuildPath(folder, baseName + kEnding);
        if (fileSystem.FileExists(path)) {
            return path;
        }
    }
    return std::nullopt;
}

std::wstring SettingsCommandLine(const std::wstring& saverPath) {
    return saverPath + L" /c";
}

}  // namespace ambrio
