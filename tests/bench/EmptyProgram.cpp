// A window that is painted once, and the end: what a start costs before a program does anything of
// its own. With an argument no window is seen, and the program says "there" and stays: as long as
// it does, Wine keeps the desktop, which it else makes anew for a program with a window.

#include "platform/win32/WindowsHeaders.h"

namespace {

int Stay() {
    CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), "there\n", 6, &written, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    return 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR arguments, int) {
    if (*arguments != L'\0') {
        return Stay();
    }
    const HWND window =
        CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"AmbrioEmptyProgram", WS_POPUP | WS_VISIBLE, 0,
                        0, 400, 200, nullptr, nullptr, nullptr, nullptr);
    UpdateWindow(window);
    Sleep(2000);
    DestroyWindow(window);
    return 0;
}
