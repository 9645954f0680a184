#pragma once

#include "platform/win32/NativeHeaders.h"

// The replaced calls that change files: every write sets the archive bit, it can be cleared, and
// what Windows refuses is refused.
namespace ambrio::windowsfiles {

BOOL WINAPI SetFileAttributesAsOnWindows(LPCWSTR path, DWORD attributes);
HANDLE WINAPI CreateFileAsOnWindows(LPCWSTR path, DWORD access, DWORD share,
                                    LPSECURITY_ATTRIBUTES security, DWORD disposition, DWORD flags,
                                    HANDLE like);
BOOL WINAPI WriteFileAsOnWindows(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written,
                                 LPOVERLAPPED overlapped);
BOOL WINAPI SetEndOfFileAsOnWindows(HANDLE file);
BOOL WINAPI SetFileTimeAsOnWindows(HANDLE file, const FILETIME* creation, const FILETIME* access,
                                   const FILETIME* write);
BOOL WINAPI CopyFileAsOnWindows(LPCWSTR source, LPCWSTR target, BOOL failsIfThere);
BOOL WINAPI CopyFileExAsOnWindows(LPCWSTR source, LPCWSTR target, LPPROGRESS_ROUTINE progress,
                                  LPVOID data, LPBOOL cancel, DWORD flags);
BOOL WINAPI MoveFileExAsOnWindows(LPCWSTR source, LPCWSTR target, DWORD flags);
// As above, where it renames.
NTSTATUS NTAPI NtSetInformationFileAsOnWindows(HANDLE file, PIO_STATUS_BLOCK result, PVOID data,
                                               ULONG size, FILE_INFORMATION_CLASS what);
BOOL WINAPI DeleteFileAsOnWindows(LPCWSTR path);

}  // namespace ambrio::windowsfiles
