#include "platform/win32/files/FileIdentity.h"

#include <string_view>

#include "platform/win32/NativeHeaders.h"
#include "platform/win32/files/NameRules.h"
#include "platform/win32/system/Handle.h"
#include "platform/win32/system/TextOfCall.h"

namespace ambrio {

namespace {

constexpr std::uint64_t kNoNumber = 0;
// Of the system's documented classes, which not every header names.
constexpr auto kFileInternalInformation = static_cast<FILE_INFORMATION_CLASS>(6);

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

// The file system's own number of a file. Some network file systems give every file the number 0,
// which would make all of them one. The system's call for a program like this one asks for the
// volume as well, which costs many times as much.
std::uint64_t NumberOf(HANDLE file) {
    IO_STATUS_BLOCK status;
    LARGE_INTEGER number{};
    if (NtQueryInformationFile(file, &status, &number, sizeof(number), kFileInternalInformation) <
        0) {
        return kNoNumber;
    }
    return static_cast<std::uint64_t>(number.QuadPart);
}

// Fills in on which volume and disk a file lies. False when it is no longer there.
bool FindPlace(const std::wstring& extended, const FileIdentity& identity) {
    const auto file = OpenTarget(extended);
    BY_HANDLE_FILE_INFORMATION information;
    if (!file || NumberOf(file.get()) != identity.File ||
        GetFileInformationByHandle(file.get(), &information) == 0) {
        return false;
    }
    identity.Volume = information.dwVolumeSerialNumber;
    identity.Disk = DiskOf(file.get());
    return true;
}

}  // namespace

DWORD ReadInformation(const std::wstring& extended, BY_HANDLE_FILE_INFORMATION& information) {
    const auto file = OpenTarget(extended);
    if (!file || GetFileInformationByHandle(file.get(), &information) == 0) {
        return GetLastError();
    }
    return ERROR_SUCCESS;
}

std::optional<FileIdentity> IdentityOfOpen(HANDLE file, const std::wstring& extended) {
    const std::uint64_t number = NumberOf(file);
    if (number == kNoNumber) {
        return IdentityByPath(file);
    }
    FileIdentity identity;
    identity.File = number;
    identity.FindPlace = [extended](const FileIdentity& found) {
        return FindPlace(extended, found);
    };
    return identity;
}

DWORD ReadFileIdentity(const std::wstring& extended, std::optional<FileIdentity>& identity) {
    identity.reset();
    const auto file = OpenTarget(extended);
    if (!file) {
        return GetLastError();
    }
    identity = IdentityOfOpen(file.get(), extended);
    return ERROR_SUCCESS;
}

std::optional<FileIdentity> ReadFileIdentity(const std::wstring& extended) {
    std::optional<FileIdentity> identity;
    return ReadFileIdentity(extended, identity) == ERROR_SUCCESS ? identity : std::nullopt;
}

}  // namespace ambrio
