#include "engine/LogPath.h"

#include "engine/EngineTexts.h"
#include "platform/RuntimeError.h"

namespace ambrio {

std::wstring LogPath(const Application& application, FileSystem& fileSystem) {
    const std::wstring name = LogName(application.Title);
    if (fileSystem.IsWritableFolder(application.ProgramFolder, name)) {
        return FileSystem::BuildPath(application.ProgramFolder, name);
    }
    const std::wstring folder =
        FileSystem::BuildPath(application.LocalDataFolder, application.Title);
    if (!fileSystem.FolderExists(folder)) {
        try {
            fileSystem.CreateFolder(folder);
        } catch (const RuntimeError&) {
            // The log cannot be opened then, which says all there is to say.
        }
    }
    return FileSystem::BuildPath(folder, name);
}

}  // namespace ambrio
