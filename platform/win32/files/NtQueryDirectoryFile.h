#pragma once

#include "platform/win32/NativeHeaders.h"

// The system's documented call below its searches, which not every header names.
extern "C" NTSTATUS NTAPI NtQueryDirectoryFile(HANDLE folder, HANDLE event, PIO_APC_ROUTINE routine,
                                               PVOID context, PIO_STATUS_BLOCK status, PVOID data,
                                               ULONG size, FILE_INFORMATION_CLASS kind,
                                               BOOLEAN single, PUNICODE_STRING mask,
                                               BOOLEAN restart);
