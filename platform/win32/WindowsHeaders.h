#pragma once

// The one place that includes the system's headers. They rename functions through macros; a class
// with an operation of the same name would then have another name in files that know the macros
// than in files that do not, so those macros are taken back. Call the wide functions by their own
// names (CopyFileW).

#include <windows.h>
// The ones below need the first.
#include <commctrl.h>
#include <oleauto.h>
#include <psapi.h>
#include <shellapi.h>
#include <shlobj.h>
#include <uxtheme.h>
#include <vsstyle.h>
#include <winnetwk.h>

#undef CopyFile
#undef CreateFile
#undef DeleteFile
#undef FindWindow
#undef GetCommandLine
#undef GetMessage
#undef GetObject
#undef GetSystemDirectory
#undef GetVersionEx
#undef GetWindowsDirectory
#undef LoadString
#undef MessageBox
#undef SendMessage
#undef SetWindowText
#undef Yield
