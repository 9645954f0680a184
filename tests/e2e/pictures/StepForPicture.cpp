// Brings the animation of a running program to a certain step within seconds, for a picture of it:
//     StepForPicture saver STEPS            the full-screen form, which somebody has started
//     StepForPicture preview PROGRAM STEPS  starts the preview on the desktop's own window, which
//                                           is the only foreign one that Wine shows it in
// Ends when the step is reached; the program goes on.

#include <string>

#include "platform/win32/WindowsHeaders.h"
#include "tests/e2e/support/RunningProgram.h"

namespace ambrio::e2e {
namespace {

constexpr WPARAM kSaverTimer = 2;    // tmrKeepOnRunnin
constexpr WPARAM kPreviewTimer = 1;  // Timer1

// Steps the form with this title as its own timer does.
bool Step(const wchar_t* title, WPARAM timer, int steps) {
    HWND form = nullptr;
    if (!WaitUntil([&] { return (form = FindWindowW(nullptr, title)) != nullptr; })) {
        return false;
    }
    for (int i = 0; i < steps; ++i) {
        SendMessageW(form, WM_TIMER, timer, 0);
    }
    return true;
}

int Run(int count, wchar_t** arguments) {
    const std::wstring kind = count > 2 ? arguments[1] : L"";
    if (kind == L"saver" && count == 3) {
        return Step(L"Ambrio Screen Saver", kSaverTimer, std::stoi(arguments[2])) ? 0 : 1;
    }
    if (kind == L"preview" && count == 4) {
        const auto desktop = reinterpret_cast<INT_PTR>(GetDesktopWindow());
        const RunningProgram preview(arguments[2], L"/p " + std::to_wstring(desktop));
        Step(L"Mini form for 'Screen Properties' window", kPreviewTimer, std::stoi(arguments[3]));
        // The preview lives as long as this program, which whoever takes the picture ends.
        return preview.WaitForEnd(Milliseconds(60000)) ? 0 : 1;
    }
    return 2;
}

}  // namespace
}  // namespace ambrio::e2e

int wmain(int count, wchar_t** arguments) {
    return ambrio::e2e::Run(count, arguments);
}
