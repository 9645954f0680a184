#include "engine/SameFile.h"

#include "platform/RuntimeError.h"

namespace ambrio {

std::optional<bool> AreOneFile(FileSystem& fileSystem, const std::wstring& one,
                               const std::wstring& other) {
    try {
        const std::optional<FileIdentity> first = fileSystem.IdentityOf(one);
        const std::optional<FileIdentity> second = fileSystem.IdentityOf(other);
        if (first && second && (first == second || !(first->IsByPath || second->IsByPath))) {
            return first == second;
        }
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace ambrio
