#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/RunHost.h"
#include "engine/RunSignals.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace ambrio {

// How many entries of a listing are read before pending events run.
inline constexpr int kEntriesBetweenYields = 256;

// What a source folder holds, fetched in one pass, in the file system's order. Of the files it
// keeps the names only: each is read when its turn comes.
struct SourceListing {
    std::vector<std::wstring> Files;
    std::vector<FileEntry> SubFolders;
    // Why the listing broke off; what came before it is kept.
    std::optional<RuntimeError> BrokenOff;
};

// Throws RuntimeError when the folder cannot be opened. Lets events run now and then; once the run
// is interrupted it stops at the first file, as nobody asks for more. Subfolders are left out
// unless wanted.
[[nodiscard]] SourceListing FetchSourceListing(FileSystem& fileSystem, RunHost& host,
                                               const RunSignals& signals,
                                               const std::wstring& rsSourceDir,
                                               bool withSubFolders);

}  // namespace ambrio
