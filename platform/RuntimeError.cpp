#include "platform/RuntimeError.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/DecimalText.h"

namespace ambrio {
namespace {

struct NumberRow {
    ErrorNumber Number;
    const wchar_t* Description;
};

constexpr std::array<NumberRow, 12> kDescriptions{{
    {ErrorNumber::InvalidProcedureCall, L"Invalid procedure call or argument"},
    {ErrorNumber::Overflow, L"Overflow"},
    {ErrorNumber::OutOfMemory, L"Out of memory"},
    {ErrorNumber::TypeMismatch, L"Type mismatch"},
    {ErrorNumber::BadFileNameOrNumber, L"Bad file name or number"},
    {ErrorNumber::FileNotFound, L"File not found"},
    {ErrorNumber::FileAlreadyExists, L"File already exists"},
    {ErrorNumber::DiskFull, L"Disk full"},
    {ErrorNumber::PermissionDenied, L"Permission denied"},
    {ErrorNumber::DiskNotReady, L"Disk not ready"},
    {ErrorNumber::PathFileAccessError, L"Path/File access error"},
    {ErrorNumber::PathNotFound, L"Path not found"},
}};

struct CodeRow {
    std::uint32_t Code;
    ErrorNumber Number;
};

constexpr std::array<CodeRow, 18> kNumbers{{
    {2, ErrorNumber::FileNotFound},           // ERROR_FILE_NOT_FOUND
    {3, ErrorNumber::PathNotFound},           // ERROR_PATH_NOT_FOUND
    {5, ErrorNumber::PermissionDenied},       // ERROR_ACCESS_DENIED
    {8, ErrorNumber::OutOfMemory},            // ERROR_NOT_ENOUGH_MEMORY
    {14, ErrorNumber::OutOfMemory},           // ERROR_OUTOFMEMORY
    {15, ErrorNumber::PathNotFound},          // ERROR_INVALID_DRIVE
    {19, ErrorNumber::PermissionDenied},      // ERROR_WRITE_PROTECT
    {21, ErrorNumber::DiskNotReady},          // ERROR_NOT_READY
    {32, ErrorNumber::PermissionDenied},      // ERROR_SHARING_VIOLATION
    {33, ErrorNumber::PermissionDenied},      // ERROR_LOCK_VIOLATION
    {39, ErrorNumber::DiskFull},              // ERROR_HANDLE_DISK_FULL
    {53, ErrorNumber::PathNotFound},          // ERROR_BAD_NETPATH
    {67, ErrorNumber::PathNotFound},          // ERROR_BAD_NET_NAME
    {80, ErrorNumber::FileAlreadyExists},     // ERROR_FILE_EXISTS
    {112, ErrorNumber::DiskFull},             // ERROR_DISK_FULL
    {123, ErrorNumber::BadFileNameOrNumber},  // ERROR_INVALID_NAME
    {183, ErrorNumber::FileAlreadyExists},    // ERROR_ALREADY_EXISTS
    {206, ErrorNumber::BadFileNameOrNumber},  // ERROR_FILENAME_EXCED_RANGE
}};

}  // namespace

std::wstring DescriptionOf(ErrorNumber number) {
    const auto* row = std::find_if(kDescriptions.begin(), kDescriptions.end(),
                                   [number](const NumberRow& r) { return r.Number == number; });
    return row == kDescriptions.end() ? std::wstring() : std::wstring(row->Description);
}

ErrorNumber NumberOfWin32Code(std::uint32_t code) {
    const auto* row = std::find_if(kNumbers.begin(), kNumbers.end(),
                                   [code](const CodeRow& r) { return r.Code == code; });
    return row == kNumbers.end() ? ErrorNumber::PathFileAccessError : row->Number;
}

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, DescriptionOf(number)) {}

RuntimeError::RuntimeError(ErrorNumber number, std::wstring description)
    : number_(number), description_(std::move(description)) {}

std::wstring RuntimeError::LogText() const {
    return L"Error " + DecimalText(static_cast<int>(number_)) + L" - " + description_;
}

}  // namespace ambrio
