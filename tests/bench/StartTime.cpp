// How long a program takes from its start until its window is on the screen:
//   StartTime TITLE CHILD_CLASS PROGRAM [ARGUMENTS]
// prints the milliseconds until a window of that title has a child of that class that is visible
// and has been painted (until it is visible itself where the class is "-"), and ends the program.

#include <chrono>
#include <iostream>
#include <string>

#include "platform/win32/WindowsHeaders.h"
#include "tests/e2e/support/Handles.h"

namespace ambrio::e2e {
namespace {

constexpr std::chrono::seconds kPatience{30};

// Nothing of the screen is as blue as the panel before it is there.
bool IsPainted(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    const HDC screen = GetDC(nullptr);
    const COLORREF pixel = GetPixel(screen, place.left + 1, place.bottom - 2);
    ReleaseDC(nullptr, screen);
    return pixel != CLR_INVALID && pixel != RGB(0, 0, 0);
}

bool IsThere(const std::wstring& title, const std::wstring& child) {
    const HWND window = FindWindowW(nullptr, title.c_str());
    if (window == nullptr || IsWindowVisible(window) == FALSE) {
        return false;
    }
    if (child == L"-") {
        return true;
    }
    const HWND panel = FindWindowExW(window, nullptr, child.c_str(), nullptr);
    return panel != nullptr && IsWindowVisible(panel) != FALSE && IsPainted(panel);
}

int Run(const std::wstring& title, const std::wstring& child, std::wstring commandLine) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process;
    const auto start = std::chrono::steady_clock::now();
    if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &process) == FALSE) {
        return 2;
    }
    const UniqueHandle thread(process.hThread);
    const UniqueHandle program(process.hProcess);
    std::chrono::duration<double, std::milli> lasted{};
    bool isThere = false;
    while (!isThere && lasted < kPatience) {
        Sleep(1);
        isThere = IsThere(title, child);
        lasted = std::chrono::steady_clock::now() - start;
    }
    TerminateProcess(program.get(), 0);
    WaitForSingleObject(program.get(), INFINITE);
    std::wcout << lasted.count() << std::endl;
    return isThere ? 0 : 1;
}

}  // namespace
}  // namespace ambrio::e2e

int wmain(int count, wchar_t** arguments) {
    if (count < 4) {
        return 2;
    }
    std::wstring commandLine = arguments[3];
    for (int i = 4; i < count; ++i) {
        commandLine += std::wstring(L" ") + arguments[i];
    }
    return ambrio::e2e::Run(arguments[1], arguments[2], commandLine);
}
