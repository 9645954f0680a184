#include "tests/e2e/support/CurrentFolder.h"

#include "platform/win32/WindowsHeaders.h"
#include "tests/e2e/support/Handles.h"

namespace ambrio::e2e {

CurrentFolder::CurrentFolder(std::wstring path)
    : path_(std::move(path)), before_(CurrentFolderPath()) {}

CurrentFolder::~CurrentFolder() {
    SetCurrentDirectoryW(before_.c_str());
}

void CurrentFolder::Enter() {
    if (SetCurrentDirectoryW(path_.c_str()) == 0) {
        ThrowWin32Error("entering a folder");
    }
}

std::wstring CurrentFolderPath() {
    wchar_t buffer[MAX_PATH];
    return {buffer, GetCurrentDirectoryW(MAX_PATH, buffer)};
}

}  // namespace ambrio::e2e
