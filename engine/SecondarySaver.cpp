#include "engine/SecondarySaver.h"

#include <algorithm>
#include <vector>

#include "engine/EngineTexts.h"

namespace ambrio {
namespace {

HandOver GiveUp(RunHost& host, const std::wstring& trouble) {
    host.ShowMessage(trouble, MessageIcon::None);
    host.UnloadForm();
    return HandOver::Stayed;
}

}  // namespace

HandOver StartSecondarySaver(FileSystem& fileSystem, RunHost& host, const std::wstring& name,
                             const std::wstring& EndWord) {
    if (name.empty()) {
        return HandOver::Stayed;
    }
    const std::wstring file = SaverFile(name);
    const auto isIn = [&](const std::wstring& folder) {
        return fileSystem.FileExists(FileSystem::BuildPath(folder, file));
    };
    const std::vector<std::wstring> systemFolders = host.SystemFolders();
    bool started = false;
    if (isIn(host.WindowsFolder())) {
        started = host.StartProgram(StartSaverOfWindowsFolder(name), WindowState::Hidden);
    } else if (std::any_of(systemFolders.begin(), systemFolders.end(), isIn)) {
        started = host.StartProgram(StartSaverOfSystemFolder(name), WindowState::NormalFocus);
    } else {
        return GiveUp(host, SaverNotFound(name));
    }
    if (!started) {
        return GiveUp(host, SaverNotStarted(name));
    }
    // Wanted: the box waits behind the other screen saver until the user is back.
    host.ShowMessage(EndWord, MessageIcon::None);
    host.End();
    return HandOver::Ended;
}

}  // namespace ambrio
