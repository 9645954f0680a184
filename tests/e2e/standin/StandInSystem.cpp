// Stands between the program and some calls of the system, from the moment at which this module is
// loaded into it: writes down those that leave nothing behind that could be seen from outside, and
// takes as long for the animation as a slow machine would.

#include <array>
#include <cstring>
#include <string>
#include <utility>

#include "platform/win32/WindowsHeaders.h"
#include "tests/e2e/StandIn.h"
#include "tests/support/win32/ImportTable.h"

namespace {

using namespace ambrio::e2e;

constexpr const char* kChangePassword = "PwdChangePasswordA";
std::wstring passwordLibrary;  // where the program has looked for that function

DWORD Number(const wchar_t* name) {
    DWORD number = 0;
    DWORD size = sizeof number;
    RegGetValueW(HKEY_CURRENT_USER, kSystemCallsKey, name, RRF_RT_REG_DWORD, nullptr, &number,
                 &size);
    return number;
}

void WriteDown(const std::wstring& call) {
    static std::wstring calls;
    calls += call + L"\n";
    RegSetKeyValueW(HKEY_CURRENT_USER, kSystemCallsKey, kCalls, REG_SZ, calls.c_str(),
                    static_cast<DWORD>((calls.size() + 1) * sizeof(wchar_t)));
}

template <typename... Numbers>
std::wstring Joined(const std::wstring& first, Numbers... numbers) {
    std::wstring text = first;
    ((text += L" " + std::to_wstring(numbers)), ...);
    return text;
}

UINT_PTR WINAPI SetTimerSeen(HWND window, UINT_PTR id, UINT interval, TIMERPROC procedure) {
    std::array<wchar_t, 100> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    WriteDown(Joined(L"SetTimer " + std::wstring(name.data()), id, interval));
    return SetTimer(window, id, interval, procedure);
}

BOOL WINAPI SystemParametersInfoSeen(UINT action, UINT number, PVOID data, UINT update) {
    if (action == SPI_SCREENSAVERRUNNING) {
        WriteDown(Joined(L"ScreenSaverRunning", number, *static_cast<const UINT*>(data), update));
    }
    return SystemParametersInfoW(action, number, data, update);
}

LRESULT WINAPI DefWindowProcSeen(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SYSCOMMAND) {
        WriteDown(Joined(L"SystemCommand", wParam));
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

DWORD WINAPI ChangePasswordSeen(LPCSTR registryKey, HWND owner, DWORD reserved, DWORD flags) {
    const std::string key = registryKey;
    WriteDown(
        Joined(L"ChangePassword " + passwordLibrary + L" " + std::wstring(key.begin(), key.end()),
               reinterpret_cast<INT_PTR>(owner), reserved, flags));
    return ERROR_SUCCESS;
}

BOOL WINAPI WatchSessionSeen(HWND window, DWORD flags) {
    WriteDown(Joined(L"WatchSession", IsWindow(window), flags));
    return TRUE;
}

BOOL WINAPI LeaveSessionSeen(HWND window) {
    WriteDown(Joined(L"LeaveSession", IsWindow(window)));
    return TRUE;
}

// Each setting is known by the first number of its identifier, which serves as its handle too.
HANDLE WINAPI WatchPowerSeen(HANDLE window, const GUID* setting, DWORD flags) {
    WriteDown(Joined(L"WatchPower", IsWindow(static_cast<HWND>(window)), setting->Data1, flags));
    return reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(setting->Data1));
}

BOOL WINAPI LeavePowerSeen(HANDLE watch) {
    WriteDown(Joined(L"LeavePower", reinterpret_cast<ULONG_PTR>(watch)));
    return TRUE;
}

template <typename Function>
FARPROC Address(Function* function) {
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(function));
}

// What stands in for a function of that name in the libraries that not every system has.
FARPROC StandInFor(const char* name) {
    const std::array<std::pair<const char*, FARPROC>, 4> standIns = {{
        {"WTSRegisterSessionNotification", Address(&WatchSessionSeen)},
        {"WTSUnRegisterSessionNotification", Address(&LeaveSessionSeen)},
        {"RegisterPowerSettingNotification", Address(&WatchPowerSeen)},
        {"UnregisterPowerSettingNotification", Address(&LeavePowerSeen)},
    }};
    for (const auto& [known, function] : standIns) {
        if (std::strcmp(name, known) == 0) {
            return function;
        }
    }
    return nullptr;
}

FARPROC WINAPI GetProcAddressSeen(HMODULE library, LPCSTR name) {
    if (HIWORD(reinterpret_cast<ULONG_PTR>(name)) == 0) {
        return GetProcAddress(library, name);
    }
    if (std::strcmp(name, kChangePassword) != 0) {
        const FARPROC standIn = StandInFor(name);
        return standIn == nullptr ? GetProcAddress(library, name) : standIn;
    }
    std::array<wchar_t, MAX_PATH> path{};
    GetModuleFileNameW(library, path.data(), static_cast<DWORD>(path.size()));
    passwordLibrary = path.data();
    passwordLibrary.erase(0, passwordLibrary.find_last_of(L'\\') + 1);
    return Address(&ChangePasswordSeen);
}

// The program calls it once for each step of the animation, before it draws.
BOOL WINAPI GdiFlushSlowly() {
    Sleep(Number(kDrawingTime));
    return GdiFlush();
}

template <typename Function>
ambrio::Replacement Replacing(const char* name, Function* function) {
    return {name, reinterpret_cast<void*>(function)};
}

bool Enter() {
    const std::array replacements = {
        Replacing("DefWindowProcW", &DefWindowProcSeen),
        Replacing("GdiFlush", &GdiFlushSlowly),
        Replacing("GetProcAddress", &GetProcAddressSeen),
        Replacing("SetTimer", &SetTimerSeen),
        Replacing("SystemParametersInfoW", &SystemParametersInfoSeen),
    };
    return ambrio::ReplaceImports(replacements, {});
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    return reason != DLL_PROCESS_ATTACH || Enter() ? TRUE : FALSE;
}
