#include "tests/conformance/FileSystemWorld.h"
#include "tests/conformance/MemoryWorld.h"
#ifdef _WIN32
#include "tests/conformance/win32/Win32World.h"
#endif

namespace ambrio {

std::vector<FileSystemWorldMaker> FileSystemWorlds() {
    return {
        {"Memory",
         [] { return std::unique_ptr<FileSystemWorld>(std::make_unique<MemoryWorld>()); }},
#ifdef _WIN32
        {"Win32", [] { return std::unique_ptr<FileSystemWorld>(std::make_unique<Win32World>()); }},
#endif
    };
}

}  // namespace ambrio
