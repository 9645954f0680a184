#include "tests/e2e/support/MappedDrive.h"

#include "tests/e2e/support/Handles.h"

namespace ambrio::e2e {

std::wstring FreeDriveName() {
    const DWORD present = GetLogicalDrives();
    for (wchar_t letter = L'Z'; letter >= L'A'; --letter) {
        if ((present & (1U << (letter - L'A'))) == 0) {
            return {letter, L':'};
        }
    }
    ThrowWin32Error("looking for a free drive letter", ERROR_INVALID_DRIVE);
}

MappedDrive::MappedDrive(std::wstring folder) : folder_(std::move(folder)), name_(FreeDriveName()) {
    if (DefineDosDeviceW(0, name_.c_str(), folder_.c_str()) == 0) {
        ThrowWin32Error("mapping a drive");
    }
}

MappedDrive::~MappedDrive() {
    DefineDosDeviceW(DDD_REMOVE_DEFINITION | DDD_EXACT_MATCH_ON_REMOVE, name_.c_str(),
                     folder_.c_str());
}

}  // namespace ambrio::e2e
