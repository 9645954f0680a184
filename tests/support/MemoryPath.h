#pragma once

#include <string>
#include <vector>

namespace ambrio {

// A path taken apart as the platform does it: either kind of separator, doubled ones, "." and ".."
// resolved, relative paths completed.
struct MemoryPath {
    std::wstring Root;  // "C:" or "\\server\share"; empty when the text names no volume
    std::vector<std::wstring> Names;

    // `currentFolder` is a full path. An empty text, separators alone and a server without a share
    // give an empty root.
    [[nodiscard]] static MemoryPath Parse(const std::wstring& text,
                                          const std::wstring& currentFolder);
};

// False for a name that no file can have: empty, longer than 255 units, with a character that is
// reserved.
[[nodiscard]] bool IsPossibleName(const std::wstring& name);

}  // namespace ambrio
