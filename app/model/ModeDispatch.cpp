#include "app/model/ModeDispatch.h"

#include "app/model/CommandSwitch.h"
#include "saver/model/FormConstants.h"

namespace ambrio {

void EnterMode(Application& application, Modes& modes) {
    const std::wstring commandSwitch = SwitchOf(application.CommandLine);
    if (commandSwitch == L"/C") {
        modes.ShowConfiguration();
    } else if (commandSwitch == L"/S" || commandSwitch == L"/D") {
        if (modes.IsNotRunning(kScreenSaverCaption)) {
            modes.ShowScreenSaver();
        }
    } else if (commandSwitch == L"/P") {
        application.ParentWindow = WindowHandleOf(application.CommandLine);
        modes.LoadPreview();
    } else if (commandSwitch == L"/A") {
        application.ParentWindow = WindowHandleOf(application.CommandLine);
        modes.ChangePassword();
    }
}

}  // namespace ambrio
