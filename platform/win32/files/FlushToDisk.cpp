#include "platform/win32/files/FlushToDisk.h"

#include "platform/AsciiCase.h"
#include "platform/win32/NtStatus.h"

namespace ambrio {
namespace {

constexpr std::size_t kDriveLetter = 4;  // its place in "\\?\C:\"

// What newer systems have and older headers lack.
struct IoStatus {
    void* Status = nullptr;
    ULONG_PTR Information = 0;
};
using FlushWithFlags = LONG(NTAPI*)(HANDLE file, ULONG flags, PVOID parameters, ULONG size,
                                    IoStatus* status);
constexpr ULONG kFileDataSyncOnly = 4;

bool IsUnknownRequest(NTSTATUS status) {
    return status == kStatusInvalidParameter || status == kStatusInvalidDeviceRequest ||
           status == kStatusNotImplemented || status == kStatusNotSupported;
}

DWORD FlushWhole(HANDLE file) {
    const DWORD code = FlushFileBuffers(file) != 0 ? ERROR_SUCCESS : GetLastError();
    const bool keepsNothingBack = code == ERROR_INVALID_FUNCTION || code == ERROR_NOT_SUPPORTED ||
                                  code == ERROR_CALL_NOT_IMPLEMENTED;
    return keepsNothingBack ? ERROR_SUCCESS : code;
}

DWORD Open(const std::wstring& extended, UniqueHandle& file) {
    file = MakeHandle<UniqueHandle>(
        CreateFileW(extended.c_str(), GENERIC_WRITE | DELETE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                    FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    return file ? ERROR_SUCCESS : GetLastError();
}

// What is open stays so when the bit is back.
DWORD OpenReadOnly(const std::wstring& extended, UniqueHandle& file) {
    const DWORD attributes = GetFileAttributesW(extended.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0) {
        return ERROR_ACCESS_DENIED;
    }
    const DWORD writable = attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
    if (SetFileAttributesW(extended.c_str(), writable != 0 ? writable : FILE_ATTRIBUTE_NORMAL) ==
        0) {
        return GetLastError();
    }
    const DWORD code = Open(extended, file);
    if (SetFileAttributesW(extended.c_str(), attributes) == 0) {
        return GetLastError();
    }
    return code;
}

}  // namespace

bool FlushedDrives::Hold(const std::wstring& extended) {
    if (extended.size() <= kDriveLetter + 1 || extended[kDriveLetter + 1] != L':') {
        return false;
    }
    const wchar_t letter = AsciiUpperCase(extended[kDriveLetter]);
    if (letter < L'A' || letter > L'Z') {
        return false;
    }
    std::atomic<Kind>& kind = kinds_.at(static_cast<std::size_t>(letter - L'A'));
    if (kind == Kind::Unknown) {
        const UINT type = GetDriveTypeW(std::wstring{letter, L':', L'\\'}.c_str());
        if (type == DRIVE_NO_ROOT_DIR) {
            return false;  // it may be there later
        }
        kind = type == DRIVE_FIXED || type == DRIVE_REMOVABLE ? Kind::Flushed : Kind::Other;
    }
    return kind == Kind::Flushed;
}

DWORD OpenToFlush(const std::wstring& extended, Patience& patience, UniqueHandle& file) {
    for (;;) {
        DWORD code = Open(extended, file);
        if (code == ERROR_ACCESS_DENIED) {
            code = OpenReadOnly(extended, file);
        }
        if (code == ERROR_SUCCESS || !IsHeldByOthers(code, extended, extended) ||
            !patience.Wait()) {
            return code;
        }
    }
}

DWORD FlushToDisk(HANDLE file) {
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    const auto flush = reinterpret_cast<FlushWithFlags>(
        reinterpret_cast<void*>(GetProcAddress(library, "NtFlushBuffersFileEx")));
    if (flush == nullptr) {
        return FlushWhole(file);
    }
    IoStatus result;
    const LONG status = flush(file, kFileDataSyncOnly, nullptr, 0, &result);
    if (IsUnknownRequest(status)) {
        return FlushWhole(file);  // by this file system
    }
    // No second try after any other failure: it may well pass, and the data be lost all the same.
    const auto codeOf = reinterpret_cast<ULONG(NTAPI*)(LONG)>(
        reinterpret_cast<void*>(GetProcAddress(library, "RtlNtStatusToDosError")));
    return status >= 0 ? ERROR_SUCCESS : codeOf(status);
}

}  // namespace ambrio
