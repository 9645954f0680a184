#include "platform/win32/files/CrashSafeCopy.h"

#include <utility>

#include "platform/RuntimeError.h"
#include "platform/win32/files/CopyWithYield.h"
#include "platform/win32/files/ExtendedPath.h"
#include "platform/win32/files/FileEntryData.h"
#include "platform/win32/files/FileIdentity.h"
#include "platform/win32/files/LinkOwner.h"
#include "platform/win32/files/Patience.h"
#include "platform/win32/files/RenameOpenFile.h"
#include "platform/win32/files/Win32Error.h"
#include "platform/win32/system/Handle.h"
#include "platform/win32/system/WorkWithYield.h"

namespace ambrio {
namespace {

constexpr std::uint64_t kLongCopy = 1 << 20;  // bytes

bool NameIsTaken(DWORD code) {
    return code == ERROR_FILE_EXISTS || code == ERROR_ALREADY_EXISTS;
}

// A name must not be given to data that a power failure could still take away. The file stays open.
DWORD Flush(const std::wstring& temporary, std::uint64_t size, const CopyWatch& watch,
            Patience& patience, const Yield& yield, UniqueHandle& file) {
    DWORD code = OpenToFlush(temporary, patience, file);
    if (code == ERROR_SUCCESS && size < kSmallFile) {
        return FlushToDisk(file.get());
    }
    if (code == ERROR_SUCCESS && watch.IsBrokenOff()) {
        return ERROR_REQUEST_ABORTED;
    }
    if (code == ERROR_SUCCESS) {
        WorkWithYield([&] { code = FlushToDisk(file.get()); }, yield);
    }
    return code;
}

// `file` is the temporary where it is open anyway, which saves the system opening it once more.
DWORD Rename(UniqueHandle file, const std::wstring& temporary, const std::wstring& destination,
             bool overwrite, Patience& patience) {
    if (file && RenameOpenFile(file.get(), destination, overwrite) == ERROR_SUCCESS) {
        return ERROR_SUCCESS;
    }
    // Also where that failed: this is the way that every file system knows, and whose failures can
    // be told from those that somebody's short look leads to. Not with our own look in the way.
    file.reset();
    for (;;) {
        if (MoveFileExW(temporary.c_str(), destination.c_str(),
                        overwrite ? MOVEFILE_REPLACE_EXISTING : 0) != 0) {
            return ERROR_SUCCESS;
        }
        const DWORD code = GetLastError();
        if (!IsHeldByOthers(code, temporary, destination) || !patience.Wait()) {
            return code;
        }
    }
}

// What does not go stays for the next run that comes by the folder.
void RemoveTemporary(const std::wstring& temporary, Patience& patience) {
    SetFileAttributesW(temporary.c_str(), FILE_ATTRIBUTE_NORMAL);
    bool again = true;
    while (again && DeleteFileW(temporary.c_str()) == 0) {
        again = IsHeldByOthers(GetLastError(), temporary, temporary) && patience.Wait();
    }
}

// Two names of one file agree in time and size; only then is it worth opening both to see.
bool AreOneFile(const std::wstring& source, const WIN32_FILE_ATTRIBUTE_DATA& sourceData,
                const std::wstring& destination, const WIN32_FILE_ATTRIBUTE_DATA& destinationData) {
    if (CompareFileTime(&sourceData.ftLastWriteTime, &destinationData.ftLastWriteTime) != 0 ||
        sourceData.nFileSizeLow != destinationData.nFileSizeLow ||
        sourceData.nFileSizeHigh != destinationData.nFileSizeHigh) {
        return false;
    }
    const auto sourceIdentity = ReadFileIdentity(source);
    return sourceIdentity && sourceIdentity == ReadFileIdentity(destination);
}

void RequireReplaceable(const std::wstring& source, const WIN32_FILE_ATTRIBUTE_DATA& sourceData,
                        const std::wstring& destination, bool overwrite) {
    WIN32_FILE_ATTRIBUTE_DATA old;
    const DWORD code = ReadFileData(destination, old);
    if (code == ERROR_FILE_NOT_FOUND) {
        return;
    }
    if (code != ERROR_SUCCESS) {
        ThrowWin32(code);
    }
    if (!overwrite) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    const bool refused =
        (old.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0;
    if (refused || AreOneFile(source, sourceData, destination, old)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}

}  // namespace

void CrashSafeCopy(const std::wstring& source, const std::wstring& destination,
                   const std::wstring& temporaryName, bool overwrite, FlushedDrives& flushed,
                   CopyWatch& watch, const Yield& yield) {
    WIN32_FILE_ATTRIBUTE_DATA sourceData;
    if (const DWORD code = ReadFileData(source, sourceData); code != ERROR_SUCCESS) {
        ThrowForPath(code, source);
    }
    if ((sourceData.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    if ((sourceData.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
        IsLinkOfAnotherUser(source)) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    const std::uint64_t size =
        (static_cast<std::uint64_t>(sourceData.nFileSizeHigh) << 32U) | sourceData.nFileSizeLow;
    // Nothing is to be overwritten: the rename finds out by itself. A long copy is not made for it.
    if (overwrite || size >= kLongCopy) {
        RequireReplaceable(source, sourceData, destination, overwrite);
    }

    const std::wstring temporary = FolderOfExtended(destination) + temporaryName;
    Patience patience(yield);
    UniqueHandle file;
    DWORD code = CopyWithYield(source, temporary, size, watch, yield);
    if (NameIsTaken(code)) {
        ThrowWin32(code);  // somebody else's, so it is not removed
    }
    if (code == ERROR_SUCCESS && flushed.Hold(temporary)) {
        code = Flush(temporary, size, watch, patience, yield, file);
    }
    if (code == ERROR_SUCCESS) {
        code = Rename(std::move(file), temporary, destination, overwrite, patience);
    }
    if (code != ERROR_SUCCESS) {
        file.reset();
        RemoveTemporary(temporary, patience);
        ThrowForPath(code, temporary);
    }
}

}  // namespace ambrio
