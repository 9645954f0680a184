#include "platform/win32/files/FileEntryData.h"

#include "platform/win32/system/Handle.h"

namespace ambrio {
namespace {

constexpr std::uint64_t kTicksPerSecond = 10'000'000;
// What newer systems know: not looked over for defects, kept on the disk, kept in the cloud.
constexpr DWORD kNoScrubData = 0x20000;
constexpr DWORD kPinned = 0x80000;
constexpr DWORD kUnpinned = 0x100000;
constexpr DWORD kSettable = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                            FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                            FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_OFFLINE |
                            FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | kNoScrubData | kPinned | kUnpinned;

}  // namespace

DWORD ReadFileData(const std::wstring& extended, WIN32_FILE_ATTRIBUTE_DATA& data) {
    if (GetFileAttributesExW(extended.c_str(), GetFileExInfoStandard, &data) != 0) {
        return ERROR_SUCCESS;
    }
    const DWORD code = GetLastError();
    if (code != ERROR_SHARING_VIOLATION) {
        return code;
    }
    // Files such as the swap file answer nobody, but their folder knows them.
    WIN32_FIND_DATAW found;
    const auto search = MakeHandle<UniqueFindHandle>(FindFirstFileExW(
        extended.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0));
    if (!search) {
        return code;
    }
    data.dwFileAttributes = found.dwFileAttributes;
    data.ftCreationTime = found.ftCreationTime;
    data.ftLastAccessTime = found.ftLastAccessTime;
    data.ftLastWriteTime = found.ftLastWriteTime;
    data.nFileSizeHigh = found.nFileSizeHigh;
    data.nFileSizeLow = found.nFileSizeLow;
    return ERROR_SUCCESS;
}

FileAttributes AttributesFrom(DWORD attributes) {
    return attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_NORMAL);
}

DWORD SettableAttributes(FileAttributes attributes) {
    const DWORD settable = attributes & kSettable;
    // Zero would mean "leave them as they are".
    return settable == 0 ? FILE_ATTRIBUTE_NORMAL : settable;
}

FileSeconds SecondsFrom(const FILETIME& time) {
    const std::uint64_t ticks =
        (static_cast<std::uint64_t>(time.dwHighDateTime) << 32U) | time.dwLowDateTime;
    return SecondsFrom(ticks);
}

FileSeconds SecondsFrom(std::uint64_t ticks) {
    return static_cast<FileSeconds>(ticks / kTicksPerSecond);
}

}  // namespace ambrio
