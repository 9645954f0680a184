#pragma once

#include <cstdint>
#include <string>

#include "platform/Application.h"
#include "platform/FileSystem.h"
#include "platform/SettingsStore.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// What the dialogs work with and tell each other. The references are not owned.
struct DialogContext {
    const Application& App;
    FileSystem& Files;
    SettingsStore& Settings;
    HINSTANCE Instance = nullptr;
    std::wstring LogFile;  // where a run writes its log

    std::wstring CurrentSetName;   // the Set being edited; empty for a new one
    std::int16_t BrowseIndex = 0;  // which folder is browsed for, see DialogTexts.h
};

}  // namespace ambrio
