#include "engine/LeftoverSweep.h"

#include <algorithm>

#include "platform/RuntimeError.h"

namespace ambrio {

void SweepLeftovers(FileSystem& fileSystem, const DestinationListing& destination,
                    const std::vector<std::wstring>& sourceFiles) {
    for (const std::wstring& leftover : destination.Leftovers()) {
        const std::wstring folded = fileSystem.FoldedName(leftover);
        const bool isCopy = std::any_of(
            sourceFiles.begin(), sourceFiles.end(),
            [&](const std::wstring& name) { return fileSystem.FoldedName(name) == folded; });
        if (isCopy) {
            continue;
        }
        try {
            fileSystem.DeleteFile(destination.PathOf(leftover), true);
        } catch (const RuntimeError&) {
            continue;  // in use, or gone by itself
        }
    }
}

}  // namespace ambrio
