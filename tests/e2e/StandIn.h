#pragma once

// What the end-to-end tests and the programs that stand in for others tell each other: values of
// one registry key below HKEY_CURRENT_USER, which needs no path that both would have to know.
namespace ambrio::e2e {

// Everything that the tests keep in the registry for themselves lies below this key.
inline constexpr const wchar_t* kTestKey = L"Software\\Ambrio end-to-end tests";
inline constexpr const wchar_t* kStandInKey = L"Software\\Ambrio end-to-end tests\\StandIn";

// Written by the stand-in for a secondary screen saver, the command line last.
inline constexpr const wchar_t* kSaverPath = L"SaverPath";                // REG_SZ
inline constexpr const wchar_t* kSaverShowState = L"SaverShowState";      // REG_DWORD
inline constexpr const wchar_t* kSaverCommandLine = L"SaverCommandLine";  // REG_SZ

// The stand-in password module: what it is to answer, and how often it was asked and for which
// window.
inline constexpr const wchar_t* kPasswordAnswer = L"PasswordAnswer";  // REG_DWORD, 0 or 1
inline constexpr const wchar_t* kPasswordCalls = L"PasswordCalls";    // REG_DWORD
inline constexpr const wchar_t* kPasswordWindow = L"PasswordWindow";  // REG_DWORD

// The module that stands between the program and some of the system's calls: what was called, a
// line each, and how long a step of the animation is to take, in milliseconds.
inline constexpr const wchar_t* kSystemCallsKey = L"Software\\Ambrio end-to-end tests\\System";
inline constexpr const wchar_t* kCalls = L"Calls";              // REG_SZ
inline constexpr const wchar_t* kDrawingTime = L"DrawingTime";  // REG_DWORD

// The module that lets files take long: two events by which it and the test tell each other that a
// call is held and that it may go on, and the parts of a path that say what is held.
inline constexpr const wchar_t* kHeldEvent = L"AmbrioTestCallIsHeld";
inline constexpr const wchar_t* kGoOnEvent = L"AmbrioTestCallsGoOn";
inline constexpr const wchar_t* kHeldCopy = L"held";     // the copy of this file
inline constexpr const wchar_t* kHeldCall = L"asleep";   // whatever is asked about this
inline constexpr int kHeldPercent = 37;                  // what is copied of it meanwhile
inline constexpr unsigned long kHeldAtMost = 30 * 1000;  // ms
// The variable of the environment that names the drive, with its colon, that is a server's.
inline constexpr const wchar_t* kServerDrive = L"AmbrioTestServerDrive";

}  // namespace ambrio::e2e
