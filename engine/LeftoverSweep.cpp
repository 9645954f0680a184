#include "engine/LeftoverSweep.h"

#include <string>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

bool IsKnownToBeMissing(FileSystem& fileSystem, const std::wstring& path) {
    try {
        static_cast<void>(fileSystem.GetFile(path));
        return false;
    } catch (const RuntimeError& failure) {
        return failure.Number() == ErrorNumber::FileNotFound;
    }
}

}  // namespace

void SweepLeftovers(FileSystem& fileSystem, const DestinationListing& destination) {
    const std::wstring& source = destination.Folder().Source().Path();
    for (const std::wstring& leftover : destination.Leftovers()) {
        if (!IsKnownToBeMissing(fileSystem, FileSystem::BuildPath(source, leftover))) {
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
