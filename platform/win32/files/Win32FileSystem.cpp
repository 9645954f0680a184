#include "platform/win32/files/Win32FileSystem.h"

#include "platform/RuntimeError.h"
#include "platform/TemporaryName.h"
#include "platform/win32/files/CrashSafeCopy.h"
#include "platform/win32/files/ExtendedPath.h"
#include "platform/win32/files/FileEntryData.h"
#include "platform/win32/files/FileIdentity.h"
#include "platform/win32/files/LinkOwner.h"
#include "platform/win32/files/NameRules.h"
#include "platform/win32/files/Win32Error.h"
#include "platform/win32/files/Win32FolderReader.h"
#include "platform/win32/files/Win32TextStream.h"
#include "platform/win32/system/Handle.h"
#include "platform/win32/system/RandomNumber.h"

namespace ambrio {
namespace {

// The data of whatever has that name, or nothing, whatever goes wrong.
std::optional<WIN32_FILE_ATTRIBUTE_DATA> DataOf(const std::wstring& path) {
    try {
        WIN32_FILE_ATTRIBUTE_DATA data;
        if (ReadFileData(ExtendedPath(path), data) == ERROR_SUCCESS) {
            return data;
        }
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
    return std::nullopt;
}

bool IsDirectory(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

WIN32_FILE_ATTRIBUTE_DATA RequireFile(const std::wstring& extended) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (const DWORD code = ReadFileData(extended, data); code != ERROR_SUCCESS) {
        ThrowForPath(code, extended);
    }
    if (IsDirectory(data.dwFileAttributes)) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    return data;
}

std::wstring NewTemporaryName() {
    return TemporaryName(RandomNumber(), GetCurrentProcessId());
}

FileEntry FileEntryOf(const std::wstring& extended, const WIN32_FILE_ATTRIBUTE_DATA& data) {
    FileEntry entry = EntryFrom(data, NameOfExtended(extended));
    entry.IsOfAnotherUser = entry.IsLink() && IsLinkOfAnotherUser(extended);
    BY_HANDLE_FILE_INFORMATION target;
    if (entry.IsLink() && !entry.IsOfAnotherUser &&
        ReadInformation(extended, target) == ERROR_SUCCESS &&
        !IsDirectory(target.dwFileAttributes)) {
        return EntryFrom(target, entry.Name);
    }
    return entry;
}

}  // namespace

bool Win32FileSystem::FileExists(const std::wstring& path) {
    const auto data = DataOf(path);
    return data && !IsDirectory(data->dwFileAttributes);
}

bool Win32FileSystem::FolderExists(const std::wstring& path) {
    const auto data = DataOf(path);
    return data && IsDirectory(data->dwFileAttributes);
}

FileEntry Win32FileSystem::GetFile(const std::wstring& path) {
    const std::wstring extended = ExtendedPath(path);
    return FileEntryOf(extended, RequireFile(extended));
}

std::optional<FileEntry> Win32FileSystem::FindFile(const std::wstring& path) {
    const auto data = DataOf(path);
    if (!data || IsDirectory(data->dwFileAttributes)) {
        return std::nullopt;
    }
    return FileEntryOf(ExtendedPath(path), *data);
}

std::unique_ptr<FolderReader> Win32FileSystem::GetFolder(const std::wstring& path) {
    return std::make_unique<Win32FolderReader>(ExtendedPath(path));
}

std::optional<FileIdentity> Win32FileSystem::IdentityOf(const std::wstring& path) {
    std::optional<FileIdentity> identity;
    const DWORD code = ReadFileIdentity(ExtendedPath(path), identity);
    if (code == ERROR_FILE_NOT_FOUND) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    if (code != ERROR_SUCCESS) {
        ThrowWin32(code);
    }
    return identity;
}

bool Win32FileSystem::FindsFoldedNames(const std::wstring& folder) {
    try {
        return IsOnOwnDisk(ExtendedPath(folder)) && !TellsCasesApart(ExtendedPath(folder));
    } catch (const RuntimeError&) {
        return false;
    }
}

void Win32FileSystem::CreateFolder(const std::wstring& path) {
    const std::wstring extended = ExtendedPath(path);
    if (CreateDirectoryW(extended.c_str(), nullptr) != 0) {
        return;
    }
    const DWORD code = GetLastError();
    // The system refuses to make the root of a drive instead of saying that it is there.
    if (code == ERROR_ACCESS_DENIED && DataOf(path)) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    ThrowForPath(code, extended);
}

void Win32FileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    const std::wstring extended = ExtendedPath(path);
    if (SetFileAttributesW(extended.c_str(), SettableAttributes(attributes)) == 0) {
        ThrowForPath(GetLastError(), extended);
    }
}

void Win32FileSystem::DeleteFile(const std::wstring& path, bool force) {
    const std::wstring extended = ExtendedPath(path);
    const DWORD attributes = RequireFile(extended).dwFileAttributes;
    const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (readOnly && !force) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    if (readOnly) {
        const DWORD writable = attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
        if (SetFileAttributesW(extended.c_str(), SettableAttributes(writable)) == 0) {
            ThrowLastError();
        }
    }
    DWORD code = DeleteFileW(extended.c_str()) != 0 ? ERROR_SUCCESS : GetLastError();
    // Not every system that runs this program tells the truth about a removal that was refused.
    if (code == ERROR_SUCCESS && GetFileAttributesW(extended.c_str()) != INVALID_FILE_ATTRIBUTES) {
        code = ERROR_ACCESS_DENIED;
    }
    if (code == ERROR_SUCCESS) {
        return;
    }
    if (readOnly) {
        SetFileAttributesW(extended.c_str(), SettableAttributes(attributes));
    }
    ThrowWin32(code);
}

void Win32FileSystem::CopyFile(const std::wstring& source, const std::wstring& destination,
                               bool overwrite, const Yield& yield) {
    const std::wstring extendedDestination = ExtendedPath(destination);
    CrashSafeCopy(ExtendedPath(source), extendedDestination, NewTemporaryName(), overwrite,
                  flushedDrives_, copyWatch_, yield);
}

std::unique_ptr<PreparedCopy> Win32FileSystem::PrepareCopy(const ExpectedCopy& copy,
                                                           const std::function<bool()>& isWanted) {
    return PrepareCrashSafeCopy(
        {ExtendedPath(copy.Source), ExtendedPath(copy.Destination), copy.Size, copy.SeemsNew},
        NewTemporaryName(), flushedDrives_, isWanted);
}

std::optional<std::uint64_t> Win32FileSystem::FreeBytes(const std::wstring& folder) {
    try {
        ULARGE_INTEGER free;
        if (GetDiskFreeSpaceExW(BuildPath(ExtendedPath(folder), {}).c_str(), &free, nullptr,
                                nullptr) != 0) {
            return free.QuadPart;
        }
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
    return std::nullopt;
}

std::unique_ptr<TextStream> Win32FileSystem::OpenForAppending(const std::wstring& path) {
    const std::wstring extended = ExtendedPath(path);
    return std::make_unique<Win32TextStream>(extended, flushedDrives_.Hold(extended));
}

bool Win32FileSystem::IsWritableFolder(const std::wstring& path, const std::wstring& file) {
    try {
        const std::wstring old = BuildPath(path, file);
        if (DataOf(old)) {
            OpenForAppending(old);
        }
        const std::wstring probe = BuildPath(ExtendedPath(path), NewTemporaryName());
        return MakeHandle<UniqueHandle>(CreateFileW(
                   probe.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                   FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr)) != nullptr;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool Win32FileSystem::MayFollow(const std::wstring& folder) {
    try {
        const std::wstring extended = ExtendedPath(folder);
        const DWORD attributes = GetFileAttributesW(extended.c_str());
        return attributes == INVALID_FILE_ATTRIBUTES ||
               (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0 || !IsLinkOfAnotherUser(extended);
    } catch (const RuntimeError&) {
        return true;
    }
}

std::wstring Win32FileSystem::FoldedName(const std::wstring& name) const {
    return FoldName(name);
}

}  // namespace ambrio
