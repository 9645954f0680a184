#include "platform/win32/system/LaunchProgram.h"

#include <vector>

#include "platform/FileSystem.h"
#include "platform/ProgramQuotes.h"
#include "platform/win32/WindowsHeaders.h"
#include "platform/win32/system/SystemFolders.h"
#include "platform/win32/system/SystemRedirection.h"

namespace ambrio {
namespace {

WORD ShowCommand(WindowState state) {
    switch (state) {
        case WindowState::Hidden:
            return SW_HIDE;
        case WindowState::MinimisedFocus:
            return SW_SHOWMINIMIZED;
        case WindowState::NormalFocus:
            break;
    }
    return SW_SHOWNORMAL;
}

bool HasFolder(const std::wstring& program) {
    return program.find_first_of(L"\\/:") != std::wstring::npos;
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// The path of a name without a folder; empty when there is no such program. The system itself would
// first look beside this program and then in the current folder, where anybody may have put one.
std::wstring PlaceOf(const std::wstring& name) {
    std::vector<std::wstring> folders = GetSystemFolders();
    folders.insert(folders.begin(), GetWindowsFolder());
    for (const std::wstring& folder : folders) {
        std::wstring path = WithoutRedirection(FileSystem::BuildPath(folder, name));
        if (!folder.empty() && IsFile(path)) {
            return path;
        }
    }
    return {};
}

}  // namespace

bool LaunchProgram(const std::wstring& commandLine, WindowState state) {
    const std::wstring program = ProgramOf(commandLine);
    const std::wstring place = HasFolder(program) ? WithoutRedirection(program) : PlaceOf(program);
    if (place.empty()) {
        return false;
    }
    // The call writes into the text that it is given.
    std::wstring line = WithQuotedProgram(commandLine);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = ShowCommand(state);
    PROCESS_INFORMATION process{};
    // A path that stands is better told from its arguments by the system.
    const wchar_t* application = place == program ? nullptr : place.c_str();
    // The error mode that this program runs in is its own affair.
    if (!CreateProcessW(application, line.data(), nullptr, nullptr, FALSE,
                        CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr, &startup, &process)) {
        return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

}  // namespace ambrio
