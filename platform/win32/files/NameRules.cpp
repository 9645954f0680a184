#include "platform/win32/files/NameRules.h"

#include <array>

#include "platform/win32/WindowsHeaders.h"
#include "platform/win32/system/Handle.h"

namespace ambrio {
namespace {

// The class of information and its record, which older headers lack.
constexpr auto kFileCaseSensitiveInfo = static_cast<FILE_INFO_BY_HANDLE_CLASS>(23);
constexpr ULONG kCaseSensitiveDirectory = 1;

// False when the text holds anything but ASCII; it is then unspecified.
bool FoldPlainText(std::wstring& text) {
    constexpr wchar_t kLastPlain = 0x7F;
    for (wchar_t& unit : text) {
        if (unit > kLastPlain) {
            return false;
        }
        if (unit >= L'a' && unit <= L'z') {
            unit = static_cast<wchar_t>(unit - (L'a' - L'A'));
        }
    }
    return true;
}

}  // namespace

bool IsOnOwnDisk(const std::wstring& extended) {
    std::array<wchar_t, MAX_PATH> root{};
    if (GetVolumePathNameW(extended.c_str(), root.data(), static_cast<DWORD>(root.size())) == 0) {
        return false;
    }
    const UINT kind = GetDriveTypeW(root.data());
    return kind == DRIVE_FIXED || kind == DRIVE_REMOVABLE || kind == DRIVE_RAMDISK;
}

bool TellsCasesApart(const std::wstring& extendedFolder) {
    const auto folder = MakeHandle<UniqueHandle>(
        CreateFileW(extendedFolder.c_str(), FILE_READ_ATTRIBUTES,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    ULONG flags = 0;
    return folder &&
           GetFileInformationByHandleEx(folder.get(), kFileCaseSensitiveInfo, &flags,
                                        sizeof flags) != 0 &&
           (flags & kCaseSensitiveDirectory) != 0;
}

std::wstring FoldName(const std::wstring& name) {
    // The system's own way costs more than a look at a file, and names are folded twice a file.
    if (std::wstring plain = name; FoldPlainText(plain)) {
        return plain;
    }
    std::wstring folded(name.size(), L'\0');
    const auto units = static_cast<int>(name.size());
    const int mapped = LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, name.data(), units,
                                     folded.data(), units, nullptr, nullptr, 0);
    return mapped == units ? folded : name;
}

}  // namespace ambrio
