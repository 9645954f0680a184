#include "platform/win32/system/StartProgram.h"

#include "platform/ProgramQuotes.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {
namespace {

WORD ShowCommand(StartedWindow window) {
    switch (window) {
        case StartedWindow::Hidden:
            return SW_HIDE;
        case StartedWindow::MinimisedFocus:
            return SW_SHOWMINIMIZED;
        case StartedWindow::NormalFocus:
            break;
    }
    return SW_SHOWNORMAL;
}

}  // namespace

bool StartProgram(const std::wstring& commandLine, StartedWindow window) {
    // The call writes into the text that it is given.
    std::wstring line = WithQuotedProgram(commandLine);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = ShowCommand(window);
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
