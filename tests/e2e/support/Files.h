#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tests/e2e/support/Handles.h"

// File work for the tests, with names in any script and paths of any length. It is written apart
// from the program's own FileSystem, so that a mistake in one does not hide the same mistake in the
// other. What fails throws std::system_error.
namespace ambrio::e2e {

// The form of a full path that has no length limit; a path that has it already stays.
[[nodiscard]] std::wstring ExtendedPath(const std::wstring& path);

// Opens a file; never null.
[[nodiscard]] UniqueHandle OpenFile(const std::wstring& path, DWORD access, DWORD share,
                                    DWORD disposition);

// Writes a new file or replaces an old one.
void WriteFileBytes(const std::wstring& path, std::string_view bytes);
[[nodiscard]] std::string ReadFileBytes(const std::wstring& path);

[[nodiscard]] bool FileExists(const std::wstring& path);
[[nodiscard]] bool FolderExists(const std::wstring& path);

// Makes a folder and the levels above it that are missing.
void MakeFolders(const std::wstring& path);

// The attributes that the tests look at and set; the others are left out and left alone.
inline constexpr DWORD kReadOnly = FILE_ATTRIBUTE_READONLY;
inline constexpr DWORD kHidden = FILE_ATTRIBUTE_HIDDEN;
inline constexpr DWORD kSystem = FILE_ATTRIBUTE_SYSTEM;
inline constexpr DWORD kArchive = FILE_ATTRIBUTE_ARCHIVE;
[[nodiscard]] DWORD FileAttributesOf(const std::wstring& path);
void SetFileAttributesOf(const std::wstring& path, DWORD attributes);

// Modification time in 100 ns since 1601-01-01 UTC.
void SetModificationTime(const std::wstring& path, std::uint64_t time);
[[nodiscard]] std::uint64_t Now();

// Removes a folder with all that is in it, read-only files too. Links are removed, not followed.
// What does not exist is no failure.
void RemoveTree(const std::wstring& path);

// The folder for temporary files of this process, without a separator at its end.
[[nodiscard]] std::wstring TemporaryFolder();
// The folder that this test program lies in, without a separator at its end.
[[nodiscard]] std::wstring TestProgramFolder();

}  // namespace ambrio::e2e
