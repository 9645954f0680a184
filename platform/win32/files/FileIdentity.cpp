#include "platform/win32/files/FileIdentity.h"

#include <string_view>

#include "platform/win32/files/NameRules.h"
#include "platform/win32/system/Handle.h"
#include "platform/win32/system/TextOfCall.h"

namespace ambrio {

namespace {

UniqueHandle OpenTarget(const std::wstring& extended) {
    return MakeHandle<UniqueHandle>(
        CreateFileW(extended.c_str(), FILE_READ_ATTRIBUTES,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

// The path at which the system arrived, links followed; empty where it has none of that kind.
std::wstring FinalPath(HANDLE file, DWORD kind) {
    return TextOfCall([file, kind](wchar_t* text, DWORD size) {
        return GetFinalPathNameByHandleW(file, text, size, kind);
    });
}

// 64-bit FNV-1a.
std::uint64_t HashOf(std::wstring_view text) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const wchar_t unit : text) {
        hash = (hash ^ static_cast<std::uint32_t>(unit)) * 0x100000001b3U;
    }
    return hash;
}

// The name that the system gave the volume when it was first seen; 0 for what is on no disk of this
// machine.
std::uint64_t DiskOf(HANDLE file) {
    const std::wstring path = FinalPath(file, VOLUME_NAME_GUID);
    const std::size_t end = path.find(L'}');
    return end == std::wstring::npos ? 0 : HashOf(std::wstring_view(path).substr(0, end));
}

// A mapped drive and its server's name for it arrive at one and the same path.
std::optional<FileIdentity> IdentityByPath(HANDLE file) {
    const std::wstring path = FinalPath(file, VOLUME_NAME_DOS);
    if (path.empty()) {
        return std::nullopt;
    }
    FileIdentity identity;
    identity.File = HashOf(FoldName(path));
    identity.IsByPath = true;
    return identity;
}

}  // namespace

DWORD ReadInformation(const std::wstring& extended, BY_HANDLE_FILE_INFORMATION& information) {
    const auto file = OpenTarget(extended);
    if (!file || GetFileInformationByHandle(file.get(), &information) == 0) {
        return GetLastError();
    }
    return ERROR_SUCCESS;
}

DWORD ReadFileIdentity(const std::wstring& extended, std::optional<FileIdentity>& identity) {
    identity.reset();
    const auto file = OpenTarget(extended);
    BY_HANDLE_FILE_INFORMATION information;
    if (!file || GetFileInformationByHandle(file.get(), &information) == 0) {
        return GetLastError();
    }
    const std::uint64_t number =
        (static_cast<std::uint64_t>(information.nFileIndexHigh) << 32U) | information.nFileIndexLow;
    // Some network file systems give every file the number 0, which would make all of them one.
    identity = number == 0
                   ? IdentityByPath(file.get())
                   : FileIdentity{information.dwVolumeSerialNumber, number, DiskOf(file.get())};
    return ERROR_SUCCESS;
}

std::optional<FileIdentity> ReadFileIdentity(const std::wstring& extended) {
    std::optional<FileIdentity> identity;
    return ReadFileIdentity(extended, identity) == ERROR_SUCCESS ? identity : std::nullopt;
}

}  // namespace ambrio
