#include "config/ConfigurationMode.h"

#include "config/SoleConfiguration.h"
#include "config/frmConfiguration.h"
#include "config/model/DialogTexts.h"
#include "platform/win32/system/ComApartment.h"
#include "platform/win32/windows/CommonControls.h"

namespace ambrio {

void RunConfigurationMode(const Application& application, FileSystem& fileSystem,
                          SettingsStore& settings, const std::wstring& logFile,
                          HINSTANCE instance) {
    const SoleConfiguration sole(ConfigurationCaption(application.Title));
    if (!sole.IsSole()) {
        return;
    }
    const ComApartment apartment;
    CommonControls::InitClasses(ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES);
    DialogContext context{application, fileSystem, settings, instance, logFile, {}, 0};
    frmConfiguration form(context);
    form.Load(nullptr);
    form.ShowModeless();
}

}  // namespace ambrio
