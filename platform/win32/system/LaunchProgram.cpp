#include "platform/win32/system/LaunchProgram.h"

#include "platform/ProgramQuotes.h"
#include "platform/win32/WindowsHeaders.h"

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

}  // namespace

bool LaunchProgram(const std::wstring& commandLine, WindowState state) {
    // The call writes into the text that it is given.
    std::wstring line = WithQuotedProgram(commandLine);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = ShowCommand(state);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

}  // namespace ambrio
