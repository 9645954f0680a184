// A window that is painted once, and the end: what a start costs before a program does anything of
// its own.

#include "platform/win32/WindowsHeaders.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    const HWND window =
        CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"AmbrioEmptyProgram", WS_POPUP | WS_VISIBLE, 0,
                        0, 400, 200, nullptr, nullptr, nullptr, nullptr);
    UpdateWindow(window);
    Sleep(2000);
    DestroyWindow(window);
    return 0;
}
