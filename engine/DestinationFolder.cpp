#include "engine/DestinationFolder.h"

#include <optional>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

std::optional<RuntimeError> TryCreateFolder(FileSystem& fileSystem, const std::wstring& path) {
    try {
        fileSystem.CreateFolder(path);
    } catch (const RuntimeError& failure) {
        return failure;
    }
    return std::nullopt;
}

struct AncestorStep {
    std::size_t Length = 0;  // of the level at which the scan stopped
    std::optional<RuntimeError> Failure;
};

// Tries the levels above the folder, the deepest first, until one fails with anything but a missing
// parent, or succeeds.
AncestorStep CreateDeepestAncestor(FileSystem& fileSystem, const std::wstring& rsDestnDir,
                                   const RuntimeError& pathNotFound) {
    AncestorStep step{0, pathNotFound};
    for (std::size_t i = rsDestnDir.size(); i > 0; --i) {
        if (rsDestnDir[i - 1] != L'\\') {
            continue;
        }
        step = {i - 1, TryCreateFolder(fileSystem, rsDestnDir.substr(0, i - 1))};
        if (!step.Failure || step.Failure->Number() != ErrorNumber::PathNotFound) {
            break;
        }
    }
    return step;
}

}  // namespace

bool MakeDestinationFolder(FileSystem& fileSystem, const std::wstring& rsDestnDir,
                           FolderAction& action) {
    bool wasCreated = false;
    std::optional<std::size_t> lastLength;
    while (!fileSystem.FolderExists(rsDestnDir)) {
        action = FolderAction::Creating;
        if (wasCreated) {
            throw RuntimeError(ErrorNumber::PathFileAccessError);  // made, and yet not there
        }
        const std::optional<RuntimeError> failure = TryCreateFolder(fileSystem, rsDestnDir);
        if (!failure) {
            wasCreated = true;
            continue;
        }
        if (failure->Number() != ErrorNumber::PathNotFound) {
            throw RuntimeError(*failure);
        }
        const AncestorStep step = CreateDeepestAncestor(fileSystem, rsDestnDir, *failure);
        // Wanted: 75 counts as success here, as it is what a level that exists may give.
        if (step.Failure && step.Failure->Number() != ErrorNumber::PathFileAccessError) {
            throw RuntimeError(*step.Failure);
        }
        // Each pass must get one level further down, else there would be no end.
        if (lastLength && step.Length <= *lastLength) {
            throw RuntimeError(step.Failure.value_or(*failure));
        }
        lastLength = step.Length;
    }
    return wasCreated;
}

}  // namespace ambrio
