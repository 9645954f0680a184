#pragma once

#include <cstdint>
#include <string>

namespace ambrio {

inline constexpr wchar_t kApplicationTitle[] = L"Ambrio";

// The process-wide values. Main fills them once, before any form exists; everything below receives
// them by reference and only reads them.
struct Application {
    std::wstring Title;             // names the settings tree, the help file and the log
    std::wstring ProgramFolder;     // where the program file lies, without a separator at its end
    std::wstring LocalDataFolder;   // the user's local application data
    std::wstring HelpFile;          // full path; for the viewer of older Windows
    std::wstring HelpPage;          // full path; the same for any browser
    std::wstring CommandLine;       // the arguments only, as typed
    std::int16_t PixelTwipsX = 15;  // screen twips per pixel
    std::int16_t PixelTwipsY = 15;
    std::int32_t ParentWindow = 0;  // the window handle given after "/P" or "/A"
};

}  // namespace ambrio
