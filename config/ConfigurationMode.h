#pragma once

#include "platform/Application.h"
#include "platform/FileSystem.h"
#include "platform/SettingsStore.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Shows the configuration dialog, modeless and without an owner, handles messages while it is
// open, and returns when the user has closed it. Throws RuntimeError when the settings cannot be
// loaded into it (such as a "Selected" text that is no Boolean); nothing is then on the screen.
// The three references must live until it returns; `instance` is the module that holds the
// dialogs' resources.
void RunConfigurationMode(const Application& application, FileSystem& fileSystem,
                          SettingsStore& settings, HINSTANCE instance);

}  // namespace ambrio
