#include "config/ConfigurationMode.h"

#include "config/frmConfiguration.h"

namespace ambrio {

void ShowConfiguration(const Application& application, FileSystem& fileSystem,
                       SettingsStore& settings, HINSTANCE instance) {
    INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    DialogContext context{application, fileSystem, settings, instance, {}, 0};
    frmConfiguration form(context);
    form.Load(nullptr);
    form.ShowModeless();
}

}  // namespace ambrio
