#include "tests/windowsfiles/Changing.h"

#include <string>

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

// The file that another one takes the name of; nothing where that is its own or nobody's.
Information ReplacedBy(const Information& source, const wchar_t* target) {
    const Information old = InformationOf(target);
    return old && !AreOneFile(source, old) ? old : std::nullopt;
}

bool IsReadOnly(const Information& file) {
    return file && IsFile(file->dwFileAttributes) &&
           HasAny(file->dwFileAttributes, FILE_ATTRIBUTE_READONLY);
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
    const Information replaced = ReplacedBy(InformationOf(source), target);
    if (HasAny(flags, MOVEFILE_REPLACE_EXISTING) && IsReadOnly(replaced)) {
        return Refuse();
    }
    const BOOL done = MoveFileExW(source, target, flags);
    if (done != FALSE) {
        SetArchiveBit(replaced);  // another file may get its number
    }
    return done;
}

NTSTATUS NTAPI NtSetInformationFileAsOnWindows(HANDLE file, PIO_STATUS_BLOCK result, PVOID data,
                                               ULONG size, FILE_INFORMATION_CLASS what) {
    constexpr int kRename = 10;
    constexpr auto kAccessDenied = static_cast<NTSTATUS>(0xC0000022);
    Information replaced;
    if (static_cast<int>(what) == kRename) {
        const auto& rename = *static_cast<const FILE_RENAME_INFORMATION*>(data);
        std::wstring target(&rename.FileName[0], rename.FileNameLength / sizeof(wchar_t));
        target[1] = L'\\';  // of "\??\", which no program's call knows
        replaced = ReplacedBy(InformationOf(file), target.c_str());
        if (rename.ReplaceIfExists != FALSE && IsReadOnly(replaced)) {
            return kAccessDenied;
        }
    }
    const NTSTATUS status = NtSetInformationFile(file, result, data, size, what);
    if (status >= 0) {
        SetArchiveBit(replaced);  // as above
    }
    return status;
}

BOOL WINAPI DeleteFileAsOnWindows(LPCWSTR path) {
    const Information file = InformationOf(path);
    if (IsReadOnly(file)) {
        return Refuse();
    }
    const BOOL done = DeleteFileW(path);
    if (done != FALSE) {
        SetArchiveBit(file);  // as above
    }
    return done;
}

}  // namespace ambrio::windowsfiles
