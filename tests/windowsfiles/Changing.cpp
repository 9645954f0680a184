#include "tests/windowsfiles/Changing.h"

#include "tests/windowsfiles/FileFacts.h"

namespace ambrio::windowsfiles {
namespace {

using Information = std::optional<BY_HANDLE_FILE_INFORMATION>;

constexpr DWORD kCarriedByCopies =
    FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

bool AreOneFile(const Information& a, const Information& b) {
    return a && b && a->dwVolumeSerialNumber == b->dwVolumeSerialNumber &&
           a->nFileIndexHigh == b->nFileIndexHigh && a->nFileIndexLow == b->nFileIndexLow;
}

bool ReplacesContent(DWORD disposition) {
    return disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING;
}

// Whether Windows refuses to open a file that has these attributes.
bool OpeningIsRefused(DWORD old, DWORD access, DWORD disposition, DWORD flags) {
    if (!IsFile(old) || disposition == CREATE_NEW) {
        return false;
    }
    constexpr DWORD kWriting = GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_DATA | FILE_APPEND_DATA;
    const bool changes = HasAny(access, kWriting) || ReplacesContent(disposition) ||
                         HasAny(flags, FILE_FLAG_DELETE_ON_CLOSE);
    if (HasAny(old, FILE_ATTRIBUTE_READONLY) && changes) {
        return true;
    }
    // Whoever replaces a hidden or system file must know that it is one.
    const DWORD special = old & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    return disposition == CREATE_ALWAYS && (flags & special) != special;
}

// Wine 10 takes hidden and system from a file whose time is set.
void RestoreAttributes(HANDLE file, DWORD attributes) {
    constexpr DWORD kLost = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const Information now = InformationOf(file);
    if (now && (now->dwFileAttributes & kLost) != (attributes & kLost)) {
        FILE_BASIC_INFO wanted{};  // a time of 0 stays as it is
        wanted.FileAttributes = attributes;
        SetFileInformationByHandle(file, FileBasicInfo, &wanted, sizeof(wanted));
    }
}

}  // namespace

BOOL WINAPI SetFileAttributesAsOnWindows(LPCWSTR path, DWORD attributes) {
    const DWORD old = AttributesOf(path);
    if (!IsFile(old)) {
        return SetFileAttributesW(path, attributes);
    }
    // Below Wine a read-only file takes no further attribute, so that one goes first and comes
    // last.
    if (HasAny(old, FILE_ATTRIBUTE_READONLY) &&
        SetFileAttributesW(path, FILE_ATTRIBUTE_NORMAL) == 0) {
        return FALSE;
    }
    const DWORD withoutReadOnly = attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
    if (SetFileAttributesW(path, withoutReadOnly) == 0 ||
        (withoutReadOnly != attributes && SetFileAttributesW(path, attributes) == 0)) {
        return FALSE;
    }
    const Information file = InformationOf(path);
    if (HasAny(attributes, FILE_ATTRIBUTE_ARCHIVE)) {
        SetArchiveBit(file);
    } else if (!file || !Bits().Clear(*file)) {
        SetLastError(ERROR_NOT_ENOUGH_QUOTA);
        return FALSE;
    }
    return TRUE;
}

HANDLE WINAPI CreateFileAsOnWindows(LPCWSTR path, DWORD access, DWORD share,
                                    LPSECURITY_ATTRIBUTES security, DWORD disposition, DWORD flags,
                                    HANDLE like) {
    const DWORD old = AttributesOf(path);
    if (OpeningIsRefused(old, access, disposition, flags)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return INVALID_HANDLE_VALUE;
    }
    const HANDLE file = CreateFileW(path, access, share, security, disposition, flags, like);
    const bool isNew = old == INVALID_FILE_ATTRIBUTES || ReplacesContent(disposition);
    if (file != INVALID_HANDLE_VALUE && isNew) {
        SetArchiveBit(InformationOf(file));
    }
    return file;
}

BOOL WINAPI WriteFileAsOnWindows(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written,
                                 LPOVERLAPPED overlapped) {
    const BOOL done = WriteFile(file, bytes, size, written, overlapped);
    if (done != FALSE && size > 0 && !Bits().IsEmpty()) {
        SetArchiveBit(InformationOf(file));
    }
    return done;
}

BOOL WINAPI SetEndOfFileAsOnWindows(HANDLE file) {
    const BOOL done = SetEndOfFile(file);
    if (done != FALSE) {
        SetArchiveBit(InformationOf(file));
    }
    return done;
}

BOOL WINAPI SetFileTimeAsOnWindows(HANDLE file, const FILETIME* creation, const FILETIME* access,
                                   const FILETIME* write) {
    const Information before = InformationOf(file);
    const bool cleared = before && Bits().IsCleared(*before);
    const BOOL done = SetFileTime(file, creation, access, write);
    const KeepLastError keep;
    if (before && done != FALSE) {
        RestoreAttributes(file, before->dwFileAttributes);
    }
    // A new time is no new content.
    if (const Information after = InformationOf(file); cleared && after) {
        return Bits().Clear(*after) ? done : FALSE;
    }
    return done;
}

BOOL WINAPI CopyFileAsOnWindows(LPCWSTR source, LPCWSTR target, BOOL failsIfThere) {
    return CopyFileExAsOnWindows(source, target, nullptr, nullptr, nullptr,
                                 failsIfThere != FALSE ? COPY_FILE_FAIL_IF_EXISTS : 0);
}

BOOL WINAPI CopyFileExAsOnWindows(LPCWSTR source, LPCWSTR target, LPPROGRESS_ROUTINE progress,
                                  LPVOID data, LPBOOL cancel, DWORD flags) {
    const DWORD old = AttributesOf(target);
    if (IsFile(old) && !HasAny(flags, COPY_FILE_FAIL_IF_EXISTS) &&
        HasAny(old, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN)) {
        return Refuse();
    }
    if (CopyFileExW(source, target, progress, data, cancel, flags) == 0) {
        return FALSE;
    }
    SetArchiveBit(InformationOf(target));
    const DWORD wanted = AttributesOf(source) & kCarriedByCopies;
    if (wanted != (AttributesOf(target) & kCarriedByCopies)) {
        return SetFileAttributesAsOnWindows(target, wanted | FILE_ATTRIBUTE_ARCHIVE);
    }
    return TRUE;
}

BOOL WINAPI MoveFileExAsOnWindows(LPCWSTR source, LPCWSTR target, DWORD flags) {
    const Information replaced = InformationOf(target);
    const bool isOther = replaced && !AreOneFile(InformationOf(source), replaced);
    if (isOther && HasAny(flags, MOVEFILE_REPLACE_EXISTING) && IsFile(replaced->dwFileAttributes) &&
        HasAny(replaced->dwFileAttributes, FILE_ATTRIBUTE_READONLY)) {
        return Refuse();
    }
    const BOOL done = MoveFileExW(source, target, flags);
    if (done != FALSE && isOther) {
        // Another file may get its number.
        SetArchiveBit(replaced);
    }
    return done;
}

BOOL WINAPI DeleteFileAsOnWindows(LPCWSTR path) {
    const Information file = InformationOf(path);
    if (file && IsFile(file->dwFileAttributes) &&
        HasAny(file->dwFileAttributes, FILE_ATTRIBUTE_READONLY)) {
        return Refuse();
    }
    const BOOL done = DeleteFileW(path);
    if (done != FALSE) {
        SetArchiveBit(file);  // as above
    }
    return done;
}

}  // namespace ambrio::windowsfiles
