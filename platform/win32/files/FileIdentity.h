#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// What the system says of a file or folder that a path leads to, links followed; nothing when it
// cannot be opened.
[[nodiscard]] std::optional<BY_HANDLE_FILE_INFORMATION> ReadInformation(
    const std::wstring& extended);

// Volume and number of the file on it; nothing when the file system gives it no number.
struct FileIdentity {
    std::uint64_t Volume = 0;
    std::uint64_t File = 0;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};
[[nodiscard]] std::optional<FileIdentity> IdentityFrom(
    const BY_HANDLE_FILE_INFORMATION& information);
[[nodiscard]] std::optional<FileIdentity> ReadFileIdentity(const std::wstring& extended);

}  // namespace ambrio
