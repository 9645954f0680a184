#pragma once

#include <string>
#include <vector>

#include "platform/WindowState.h"

namespace ambrio {

enum class MessageIcon { None, CriticalStop };

// What a run needs of the form and the system around it. Failures of the calls that return nothing
// are ignored by the implementation. To be used on the form's thread.
class RunHost {
  public:
    virtual ~RunHost() = default;

    // Lets pending events run: input, timers, painting. May set RunSignals::Interrupted.
    virtual void DoEvents() = 0;
    // The same after a file that was only looked at. What waits may have to wait on, but no longer
    // than a millisecond in all.
    virtual void DoEventsSoon() { DoEvents(); }

    // Shows a box with an OK button, titled with the application title, and returns when the user
    // has closed it.
    virtual void ShowMessage(const std::wstring& text, MessageIcon icon) = 0;

    // Connects the network drive that the path begins with, where it is remembered but not
    // connected, asking nobody. Each drive is tried once a run. Lets pending events run meanwhile.
    virtual void ReconnectDrive(const std::wstring& path) = 0;

    [[nodiscard]] virtual std::wstring WindowsFolder() = 0;
    // The System folder first; a 64-bit system has one more.
    [[nodiscard]] virtual std::vector<std::wstring> SystemFolders() = 0;

    // Starts a program by its command line and does not wait for it. Without a folder it is the one
    // in the Windows folder or else the one in the first of the System folders. False when it could
    // not be started.
    virtual bool StartProgram(const std::wstring& commandLine, WindowState state) = 0;

    // Makes the mouse pointer visible, however often it was hidden.
    virtual void ShowPointer() = 0;
    // Takes the form out of the topmost band.
    virtual void LeaveTopmost() = 0;

    [[nodiscard]] virtual bool IsEndTimerEnabled() const = 0;

    // Asks the form to unload; it may refuse.
    virtual void UnloadForm() = 0;
    // Ends the program at once, without unloading anything. A double returns; the caller must then
    // do nothing more.
    virtual void End() = 0;
};

}  // namespace ambrio
