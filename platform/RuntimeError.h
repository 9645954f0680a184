#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace ambrio {

// The error numbers that the file system and the text conversions report. They are the runtime's
// classic numbers, as users know them from the log.
enum class ErrorNumber : int {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    TypeMismatch = 13,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    FileAlreadyExists = 58,
    DiskFull = 61,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccessError = 75,
    PathNotFound = 76,
};

// The description that belongs to a number, such as "Path not found".
[[nodiscard]] std::wstring DescriptionOf(ErrorNumber number);

// The number for a Win32 error code. A code that has no number of its own gives
// PathFileAccessError.
[[nodiscard]] ErrorNumber NumberOfWin32Code(std::uint32_t code);

// A failed operation of the runtime: of the file system, of a text conversion.
class RuntimeError : public std::exception {
  public:
    explicit RuntimeError(ErrorNumber number);
    RuntimeError(ErrorNumber number, std::wstring description);

    [[nodiscard]] ErrorNumber Number() const { return number_; }
    [[nodiscard]] const std::wstring& Description() const { return description_; }
    // "Error ", the number in decimal, " - ", the description: how every log entry about a
    // failure begins.
    [[nodiscard]] std::wstring LogText() const;
    [[nodiscard]] const char* what() const noexcept override { return "runtime error"; }

  private:
    ErrorNumber number_;
    std::wstring description_;
};

}  // namespace ambrio
