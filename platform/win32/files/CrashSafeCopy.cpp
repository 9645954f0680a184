#include "platform/win32/files/CrashSafeCopy.h"

#include "platform/RuntimeError.h"
#include "platform/win32/files/CopyWithYield.h"
#include "platform/win32/files/ExtendedPath.h"
#include "platform/win32/files/FileEntryData.h"
#include "platform/win32/files/FileIdentity.h"
#include "platform/win32/files/Win32Error.h"

namespace ambrio {
namespace {

bool NameIsTaken(DWORD code) {
    return code == ERROR_FILE_EXISTS || code == ERROR_ALREADY_EXISTS;
}

void RemoveTemporary(const std::wstring& temporary) {
    SetFileAttributesW(temporary.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(temporary.c_str());
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
                   const std::wstring& temporaryName, bool overwrite, const Yield& yield) {
    WIN32_FILE_ATTRIBUTE_DATA sourceData;
    if (const DWORD code = ReadFileData(source, sourceData); code != ERROR_SUCCESS) {
        ThrowForPath(code, source);
    }
    if ((sourceData.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    RequireReplaceable(source, sourceData, destination, overwrite);

    const std::wstring temporary = FolderOfExtended(destination) + temporaryName;
    const std::uint64_t size =
        (static_cast<std::uint64_t>(sourceData.nFileSizeHigh) << 32U) | sourceData.nFileSizeLow;
    DWORD code = CopyWithYield(source, temporary, size, yield);
    if (NameIsTaken(code)) {
        // A run was killed here whose process had the number that this one has.
        RemoveTemporary(temporary);
        code = CopyWithYield(source, temporary, size, yield);
    }
    if (NameIsTaken(code)) {
        ThrowWin32(code);
    }
    if (code == ERROR_SUCCESS && MoveFileExW(temporary.c_str(), destination.c_str(),
                                             overwrite ? MOVEFILE_REPLACE_EXISTING : 0) == 0) {
        code = GetLastError();
    }
    if (code != ERROR_SUCCESS) {
        RemoveTemporary(temporary);
        ThrowForPath(code, temporary);
    }
}

}  // namespace ambrio
