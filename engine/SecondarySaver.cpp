#include "engine/SecondarySaver.h"

#include "engine/EngineTexts.h"

namespace ambrio {
namespace {

HandOver GiveUp(RunHost& host, const wchar_t* trouble, const std::wstring& name) {
    host.ShowMessage(kTryingToStart + (kLineBreak + (trouble + name)), MessageIcon::None);
    host.UnloadForm();
    return HandOver::Stayed;
}

}  // namespace

HandOver StartSecondarySaver(FileSystem& fileSystem, RunHost& host, const std::wstring& name,
                             const std::wstring& EndWord) {
    if (name.empty()) {
        return HandOver::Stayed;
    }
    const std::wstring program = name + kScreenSaverExtension;
    bool started = false;
    if (fileSystem.FileExists(FileSystem::BuildPath(host.WindowsFolder(), program))) {
        started = host.StartProgram(program + kStartInWindows, WindowState::Hidden);
    } else if (fileSystem.FileExists(FileSystem::BuildPath(host.SystemFolder(), program))) {
        started = host.StartProgram(program + kStartInSystem, WindowState::NormalFocus);
    } else {
        return GiveUp(host, kCantFind, name);
    }
    if (!started) {
        return GiveUp(host, kCantRun, name);
    }
    // Wanted: the box waits behind the other screen saver until the user is back.
    host.ShowMessage(EndWord, MessageIcon::None);
    host.End();
    return HandOver::Ended;
}

}  // namespace ambrio
