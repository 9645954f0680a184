#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The library of the common controls in the version that the program's manifest names, or the
// system's old one where that is absent. It is loaded at the first use and stays.
class CommonControls {
  public:
    // Makes the window classes known (ICC_*).
    static void InitClasses(DWORD classes);

    // As the functions of the same purpose in the system. False and 0 without the library.
    static bool SetSubclass(HWND window, SUBCLASSPROC procedure, DWORD_PTR data);
    static void RemoveSubclass(HWND window, SUBCLASSPROC procedure);
    static LRESULT PassOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};

}  // namespace ambrio
