// frmScreenSaver: what the run asks of it.

#include <chrono>

#include "platform/win32/system/LaunchProgram.h"
#include "platform/win32/system/SystemFolders.h"
#include "platform/win32/windows/MessageLoop.h"
#include "saver/form/Pointer.h"
#include "saver/form/frmScreenSaver.h"

namespace ambrio {

void frmScreenSaver::DoEvents() {
    HandleWaitingMessages();
    pace_.Note(std::chrono::steady_clock::now());
    if (signals_.Interrupted) {
        fileSystem_.ExpectNothing();
    }
}

void frmScreenSaver::DoEventsSoon() {
    if (pace_.IsDue(std::chrono::steady_clock::now())) {
        DoEvents();
    }
}

void frmScreenSaver::ShowMessage(const std::wstring& text, MessageIcon icon) {
    ShowBox(text, application_.Title, icon == MessageIcon::CriticalStop ? MB_ICONSTOP : 0);
}

// The form has one run in its life.
void frmScreenSaver::ReconnectDrive(const std::wstring& path) {
    reconnection_.Reconnect(path, [this] { DoEvents(); });
}

std::wstring frmScreenSaver::WindowsFolder() {
    return GetWindowsFolder();
}

std::vector<std::wstring> frmScreenSaver::SystemFolders() {
    return GetSystemFolders();
}

bool frmScreenSaver::StartProgram(const std::wstring& commandLine, WindowState state) {
    return LaunchProgram(commandLine, state);
}

void frmScreenSaver::ShowPointer() {
    ShowPointerSurely();
}

// The last step of the run before its boxes, which may wait for hours; the system may sleep then,
// and the session end.
void frmScreenSaver::LeaveTopmost() {
    panel_->Tell();
    sessionEndHold_.reset();
    awake_.reset();
    SetTopmost(false);
}

void frmScreenSaver::End() {
    ExitProcess(0);
}

// Nobody reads a box while the session ends, and it would hold the end up.
void frmScreenSaver::ShowBox(const std::wstring& text, const std::wstring& title, UINT icon) {
    if (!isSessionEnding_) {
        // After a form that has let go, others lie in front, and one of them has the focus.
        const UINT place = hasLetGo_ ? MB_TOPMOST | MB_SETFOREGROUND : 0;
        MessageBoxW(Handle(), text.c_str(), title.c_str(), MB_OK | icon | place);
    }
}

}  // namespace ambrio
