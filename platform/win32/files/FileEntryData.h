#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// Reads attributes, size and time of a file or folder, links not followed, also of a file that
// another program shares with nobody. Gives the Win32 error code, 0 for success.
[[nodiscard]] DWORD ReadFileData(const std::wstring& extended, WIN32_FILE_ATTRIBUTE_DATA& data);

// The attributes as the classes above see them: the system's word for "none" is left out.
[[nodiscard]] FileAttributes AttributesFrom(DWORD attributes);
// And back; the bits that cannot be set are left out.
[[nodiscard]] DWORD SettableAttributes(FileAttributes attributes);

[[nodiscard]] FileSeconds SecondsFrom(const FILETIME& time);
// From tenths of microseconds since 1601-01-01 UTC.
[[nodiscard]] FileSeconds SecondsFrom(std::uint64_t ticks);

// From one of the structures that carry dwFileAttributes, nFileSizeHigh, ftLastWriteTime and so on.
// The name stays as it is.
template <typename Data>
void Describe(FileEntry& entry, const Data& data) {
    entry.Attributes = AttributesFrom(data.dwFileAttributes);
    entry.DateLastModified = SecondsFrom(data.ftLastWriteTime);
    entry.Size = entry.IsFolder()
                     ? 0
                     : (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32U) | data.nFileSizeLow;
}

template <typename Data>
[[nodiscard]] FileEntry EntryFrom(const Data& data, std::wstring name) {
    FileEntry entry;
    entry.Name = std::move(name);
    Describe(entry, data);
    return entry;
}

}  // namespace ambrio
