#include "tests/e2e/support/NativeFiles.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

bool HasTwoSystemFolders() {
    BOOL isGuest = FALSE;
    return IsWow64Process(GetCurrentProcess(), &isGuest) != 0 && isGuest != FALSE;
}

std::wstring OtherSystemFolder() {
    wchar_t buffer[MAX_PATH];
    return {buffer, GetSystemWow64DirectoryW(buffer, MAX_PATH)};
}

NativeFiles::NativeFiles()
    : isSwitched_(HasTwoSystemFolders() && Wow64DisableWow64FsRedirection(&before_) != FALSE) {}

NativeFiles::~NativeFiles() {
    if (isSwitched_) {
        Wow64RevertWow64FsRedirection(before_);
    }
}

}  // namespace ambrio::e2e
