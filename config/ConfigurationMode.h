#pragma once

#include <string>

#include "platform/Application.h"
#include "platform/FileSystem.h"
#include "platform/SettingsStore.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Shows the configuration dialog, modeless and without an owner, handles messages while it is
// open, and returns when the user has closed it. Where an earlier start has it open, that one comes
// to the front instead. Throws RuntimeError when the settings cannot be
// loaded into it (such as a "Selected" text that is no Boolean); nothing is then on the screen.
// The references must live until it returns; `logFile` is where a run would write its log,
// `instance` the module that holds the dialogs' resources.
void RunConfigurationMode(const Application& application, FileSystem& fileSystem,
                          SettingsStore& settings, const std::wstring& logFile, HINSTANCE instance);

}  // namespace ambrio
