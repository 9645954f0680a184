#include "config/SystemInformation.h"

#include "platform/win32/registry/GetKeyValue.h"
#include "platform/win32/system/LaunchProgram.h"

namespace ambrio {
namespace {

bool FindTool(FileSystem& fileSystem, std::wstring& path) {
    if (GetKeyValue(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", L"PATH",
                    path)) {
        return true;
    }
    if (!GetKeyValue(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Shared Tools Location", L"MSINFO",
                     path)) {
        return false;
    }
    path += L"\\MSINFO32.EXE";
    return fileSystem.FileExists(path);
}

}  // namespace

bool StartSysInfo(FileSystem& fileSystem) {
    std::wstring path;
    return FindTool(fileSystem, path) && LaunchProgram(path, WindowState::NormalFocus);
}

}  // namespace ambrio
