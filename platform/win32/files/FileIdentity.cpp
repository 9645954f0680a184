#include "platform/win32/files/FileIdentity.h"

#include "platform/win32/system/Handle.h"

namespace ambrio {

DWORD ReadInformation(const std::wstring& extended, BY_HANDLE_FILE_INFORMATION& information) {
    const auto file = MakeHandle<UniqueHandle>(
        CreateFileW(extended.c_str(), FILE_READ_ATTRIBUTES,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file || GetFileInformationByHandle(file.get(), &information) == 0) {
        return GetLastError();
    }
    return ERROR_SUCCESS;
}

std::optional<FileIdentity> IdentityFrom(const BY_HANDLE_FILE_INFORMATION& information) {
    const std::uint64_t number =
        (static_cast<std::uint64_t>(information.nFileIndexHigh) << 32U) | information.nFileIndexLow;
    // Some network file systems give every file the number 0, which would make all of them one.
    if (number == 0) {
        return std::nullopt;
    }
    return FileIdentity{information.dwVolumeSerialNumber, number};
}

std::optional<FileIdentity> ReadFileIdentity(const std::wstring& extended) {
    BY_HANDLE_FILE_INFORMATION information;
    return ReadInformation(extended, information) == ERROR_SUCCESS ? IdentityFrom(information)
                                                                   : std::nullopt;
}

}  // namespace ambrio
