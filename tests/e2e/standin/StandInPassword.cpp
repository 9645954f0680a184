// Stands in for the password module of the Windows 9x family: answers what the test has written
// down, and counts how often it was asked.

#include "platform/win32/WindowsHeaders.h"
#include "tests/e2e/StandIn.h"

namespace {

using namespace ambrio::e2e;

DWORD Read(const wchar_t* name) {
    DWORD number = 0;
    DWORD size = sizeof number;
    RegGetValueW(HKEY_CURRENT_USER, kStandInKey, name, RRF_RT_REG_DWORD, nullptr, &number, &size);
    return number;
}

void Write(const wchar_t* name, DWORD number) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kStandInKey, name, REG_DWORD, &number, sizeof number);
}

}  // namespace

extern "C" BOOL WINAPI VerifyScreenSavePwd(HWND window) {
    Write(kPasswordWindow, static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(window)));
    Write(kPasswordCalls, Read(kPasswordCalls) + 1);
    return Read(kPasswordAnswer) != 0 ? TRUE : FALSE;
}
