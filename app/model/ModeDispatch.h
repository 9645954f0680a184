#pragma once

#include <string>

#include "platform/Application.h"

namespace ambrio {

// The faces of the program, one of which the command line selects. The two that show a dialog of
// their own return when the user has closed it; the two that load a form do not wait for it.
class Modes {
  public:
    virtual ~Modes() = default;

    // Shows the configuration dialog and waits.
    virtual void ShowConfiguration() = 0;
    // True when there is no top-level window with exactly this title.
    virtual bool IsNotRunning(const std::wstring& title) = 0;
    virtual void ShowScreenSaver() = 0;
    // Loads the preview form into Application::ParentWindow, without showing it.
    virtual void LoadPreview() = 0;
    // Shows the system's password-change dialog over Application::ParentWindow and waits.
    virtual void ChangePassword() = 0;
};

// Enters the one mode that the command line selects, or none for an unknown switch. Sets
// Application::ParentWindow for those that need it. Throws RuntimeError when the number of that
// window is out of range; then no mode was entered.
void EnterMode(Application& application, Modes& modes);

}  // namespace ambrio
