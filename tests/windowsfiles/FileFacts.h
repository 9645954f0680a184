#pragma once

#include <optional>
#include <string>

#include "platform/win32/WindowsHeaders.h"
#include "tests/windowsfiles/ClearedBits.h"

// What the replaced calls need to know of files. The calls that this module itself makes reach the
// system, not the replacements.
namespace ambrio::windowsfiles {

// The table of this process; made when the module is loaded.
[[nodiscard]] ClearedBits& Bits();

// Remembers the thread's last error while something is looked up on the way.
class KeepLastError {
  public:
    KeepLastError() : code_(GetLastError()) {}
    ~KeepLastError() { SetLastError(code_); }
    KeepLastError(const KeepLastError&) = delete;
    KeepLastError& operator=(const KeepLastError&) = delete;

  private:
    DWORD code_;
};

// Sets the last error to "access denied"; false, so that a call can end with it.
[[nodiscard]] BOOL Refuse();

// True for the attributes of an existing file, which no folder and no failure is.
[[nodiscard]] bool IsFile(DWORD attributes);
[[nodiscard]] inline bool HasAny(DWORD attributes, DWORD wanted) {
    return (attributes & wanted) != 0;
}
[[nodiscard]] DWORD AttributesOf(const wchar_t* path);

// The file or folder of that name (a link itself), or behind a handle; nothing when it cannot be
// asked. The archive bit in it is the system's.
[[nodiscard]] std::optional<BY_HANDLE_FILE_INFORMATION> InformationOf(const wchar_t* path);
[[nodiscard]] std::optional<BY_HANDLE_FILE_INFORMATION> InformationOf(HANDLE file);

// The file has been written to: its archive bit is set. The last error stays.
void SetArchiveBit(const std::optional<BY_HANDLE_FILE_INFORMATION>& file);

// Takes the archive bit from the attributes that the system gave for a file, where it is cleared.
// The last error stays.
void Correct(DWORD& attributes, const wchar_t* path);
void Correct(DWORD& attributes, const BY_HANDLE_FILE_INFORMATION& file);

}  // namespace ambrio::windowsfiles
