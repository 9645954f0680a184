// What the Start menu points to. The system starts a screen saver that is named in a shortcut as if
// it had been double-clicked, with "/S" and without the shortcut's own arguments; a program it
// starts as it is told.
//
//   AmbrioStart.exe ARGUMENTS
//
// starts the Ambrio.scr that lies beside it or, where none does, the one in the Windows folder,
// with these arguments; without any it opens the configuration. Ends with 0, or with the system's
// error number after a message box.

#include "platform/win32/WindowsHeaders.h"

namespace {

constexpr int kRoom = 32768;  // what the system takes as a command line, in characters
constexpr wchar_t kProgram[] = L"\\Ambrio.scr";

bool IsThere(const wchar_t* program) {
    const DWORD attributes = GetFileAttributesW(program);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// Both write a path into a room of that size, and say whether the program is there.
bool IsBesideThisOne(wchar_t* program) {
    const DWORD length = GetModuleFileNameW(nullptr, program, kRoom - 100);
    wchar_t* last = program + length;
    while (last != program && *last != L'\\') {
        --last;
    }
    lstrcpyW(last, kProgram);
    return length != 0 && IsThere(program);
}

bool IsInTheWindowsFolder(wchar_t* program) {
    GetSystemWindowsDirectoryW(program, kRoom - 100);
    lstrcatW(program, kProgram);
    return IsThere(program);
}

DWORD StartProgram(const wchar_t* program, const wchar_t* arguments) {
    wchar_t line[kRoom];
    if (lstrlenW(program) + lstrlenW(arguments) + 4 > kRoom) {
        return ERROR_FILENAME_EXCED_RANGE;
    }
    lstrcpyW(line, L"\"");
    lstrcatW(line, program);
    lstrcatW(line, L"\" ");
    lstrcatW(line, arguments);
    // Minimised or not, as the shortcut has it.
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &process) == 0) {
        return GetLastError();
    }
    // The user has just asked for its window.
    AllowSetForegroundWindow(process.dwProcessId);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return ERROR_SUCCESS;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t* arguments, int) {
    wchar_t program[kRoom];
    const DWORD error = IsBesideThisOne(program) || IsInTheWindowsFolder(program)
                            ? StartProgram(program, arguments)
                            : ERROR_FILE_NOT_FOUND;
    if (error != ERROR_SUCCESS) {
        wchar_t text[512] = L"";
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, text, 512, nullptr);
        MessageBoxW(nullptr, text, L"Ambrio", MB_OK | MB_ICONEXCLAMATION);
    }
    return static_cast<int>(error);
}
