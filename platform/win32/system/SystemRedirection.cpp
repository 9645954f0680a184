#include "platform/win32/system/SystemRedirection.h"

#include <utility>

#include "platform/NativeSystemPath.h"
#include "platform/win32/WindowsHeaders.h"
#include "platform/win32/system/SystemFolders.h"

namespace ambrio {
namespace {

std::wstring FolderWithRedirection() {
    BOOL isGuest = FALSE;
    return IsWow64Process(GetCurrentProcess(), &isGuest) != 0 && isGuest != FALSE
               ? GetWindowsFolder()
               : std::wstring();
}

}  // namespace

std::wstring WithoutRedirection(std::wstring path) {
    static const std::wstring folder = FolderWithRedirection();
    return NativeSystemPath(std::move(path), folder);
}

}  // namespace ambrio
