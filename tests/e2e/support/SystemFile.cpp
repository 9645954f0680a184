#include "tests/e2e/support/SystemFile.h"

#include <gtest/gtest.h>

#include "platform/win32/WindowsHeaders.h"
#include "tests/e2e/support/Waiting.h"

namespace ambrio::e2e {

SystemFile::SystemFile(const std::wstring& source, std::wstring place)
    : place_(std::move(place)), installed_(CopyFileW(source.c_str(), place_.c_str(), TRUE) != 0) {}

SystemFile::~SystemFile() {
    // A program that has just ended may hold its file for a moment longer.
    if (installed_ && !WaitUntil([this] { return DeleteFileW(place_.c_str()) != 0; })) {
        ADD_FAILURE() << "a file stays in the system's folders";
    }
}

std::wstring WindowsFolder() {
    wchar_t buffer[MAX_PATH];
    return std::wstring(buffer, GetSystemWindowsDirectoryW(buffer, MAX_PATH));
}

std::wstring SystemFolder() {
    wchar_t buffer[MAX_PATH];
    return std::wstring(buffer, GetSystemDirectoryW(buffer, MAX_PATH));
}

}  // namespace ambrio::e2e
