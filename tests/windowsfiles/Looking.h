#pragma once

#include "platform/win32/NativeHeaders.h"

// The replaced calls that tell of files: the archive bit is seen as cleared where it is.
namespace ambrio::windowsfiles {

DWORD WINAPI GetFileAttributesAsOnWindows(LPCWSTR path);
BOOL WINAPI GetFileAttributesExAsOnWindows(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data);
BOOL WINAPI GetFileInformationAsOnWindows(HANDLE file, LPBY_HANDLE_FILE_INFORMATION information);
// Answers only what the program asks.
BOOL WINAPI GetFileInformationExAsOnWindows(HANDLE file, FILE_INFO_BY_HANDLE_CLASS what,
                                            LPVOID data, DWORD size);
// Answers only for the kind of record that the program asks for, all entries and no mask.
NTSTATUS NTAPI NtQueryDirectoryFileAsOnWindows(HANDLE folder, HANDLE event, PIO_APC_ROUTINE routine,
                                               PVOID context, PIO_STATUS_BLOCK status, PVOID data,
                                               ULONG size, FILE_INFORMATION_CLASS kind,
                                               BOOLEAN single, PUNICODE_STRING mask,
                                               BOOLEAN restart);
HANDLE WINAPI FindFirstFileAsOnWindows(LPCWSTR pattern, LPWIN32_FIND_DATAW data);
HANDLE WINAPI FindFirstFileExAsOnWindows(LPCWSTR pattern, FINDEX_INFO_LEVELS level, LPVOID data,
                                         FINDEX_SEARCH_OPS operation, LPVOID filter, DWORD flags);
BOOL WINAPI FindNextFileAsOnWindows(HANDLE search, LPWIN32_FIND_DATAW data);
BOOL WINAPI FindCloseAsOnWindows(HANDLE search);

}  // namespace ambrio::windowsfiles
