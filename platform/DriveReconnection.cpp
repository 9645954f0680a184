#include "platform/DriveReconnection.h"

#include "platform/DriveLetter.h"

namespace ambrio {

void DriveReconnection::Reconnect(const std::wstring& path, const Yield& yield) {
    const wchar_t letter = DriveLetterOf(path);
    if (letter == 0 || !tried_.insert(letter).second) {
        return;
    }
    const std::wstring share = drives_.LostShare(letter);
    if (!share.empty()) {
        drives_.Connect(letter, share, yield);
    }
}

}  // namespace ambrio
