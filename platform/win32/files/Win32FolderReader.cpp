#include "platform/win32/files/Win32FolderReader.h"

#include <string_view>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/win32/NtStatus.h"
#include "platform/win32/files/FileEntryData.h"
#include "platform/win32/files/FileIdentity.h"
#include "platform/win32/files/NtQueryDirectoryFile.h"
#include "platform/win32/files/Win32Error.h"

namespace ambrio {
namespace {

constexpr auto kFileStandardInformation = static_cast<FILE_INFORMATION_CLASS>(5);
// Some hundred names: what is listed may be gone when its turn comes.
constexpr ULONG kLargePiece = 0x2000;
constexpr ULONG kSmallPiece = 0x1000;  // any name fits in

using Record = FILE_FULL_DIR_INFORMATION;

bool IsFolder(HANDLE file) {
    IO_STATUS_BLOCK status;
    FILE_STANDARD_INFORMATION information{};
    return NtQueryInformationFile(file, &status, &information, sizeof information,
                                  kFileStandardInformation) >= 0 &&
           information.Directory != FALSE;
}

void Describe(FileEntry& entry, const Record& record) {
    entry.Name.assign(&record.FileName[0], record.FileNameLength / sizeof(wchar_t));
    entry.Attributes = AttributesFrom(record.FileAttributes);
    entry.DateLastModified = SecondsFrom(static_cast<std::uint64_t>(record.LastWriteTime.QuadPart));
    entry.Size = entry.IsFolder() ? 0 : static_cast<std::uint64_t>(record.EndOfFile.QuadPart);
    entry.IsOfAnotherUser = false;
    // Of a link this member holds its kind.
    entry.IsMountPoint = entry.IsLink() && record.EaSize == IO_REPARSE_TAG_MOUNT_POINT;
}

bool IsItselfOrAbove(const Record& record) {
    const std::wstring_view name(&record.FileName[0], record.FileNameLength / sizeof(wchar_t));
    return name == L"." || name == L"..";
}

}  // namespace

Win32FolderReader::Win32FolderReader(std::wstring extendedFolder)
    : extendedFolder_(std::move(extendedFolder)),
      folder_(MakeHandle<UniqueHandle>(
          CreateFileW(extendedFolder_.c_str(), FILE_LIST_DIRECTORY,
                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr))) {
    const DWORD code = folder_ ? ERROR_SUCCESS : GetLastError();
    if (code == ERROR_FILE_NOT_FOUND || (folder_ && !IsFolder(folder_.get()))) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    if (!folder_) {
        ThrowWin32(code);
    }
}

bool Win32FolderReader::Fetch() {
    if (isAtEnd_) {
        return false;
    }
    const bool isFirst = !room_;
    const auto query = [this](ULONG bytes, IO_STATUS_BLOCK& result) {
        if (bytes_ != bytes) {
            room_ = std::make_unique_for_overwrite<std::uint64_t[]>(bytes / sizeof(std::uint64_t));
            bytes_ = bytes;
        }
        return NtQueryDirectoryFile(folder_.get(), nullptr, nullptr, nullptr, &result, room_.get(),
                                    bytes_, FileFullDirectoryInformation, FALSE, nullptr, FALSE);
    };
    IO_STATUS_BLOCK result{};
    NTSTATUS status = query(isFirst ? kLargePiece : bytes_, result);
    if (isFirst && status == kStatusInvalidParameter) {
        // Some network file systems know no large pieces.
        status = query(kSmallPiece, result);
    }
    if (status >= 0 && result.Information > 0) {
        at_ = 0;
        return true;
    }
    isAtEnd_ = true;
    // The root of an empty volume has not even ".".
    if (status == kStatusNoMoreFiles || (isFirst && status == kStatusNoSuchFile)) {
        return false;
    }
    ThrowWin32(status < 0 ? RtlNtStatusToDosError(status) : ERROR_GEN_FAILURE);
}

bool Win32FolderReader::Next(FileEntry& entry) {
    for (;;) {
        if (!isInPiece_ && !Fetch()) {
            return false;
        }
        const auto& record =
            *reinterpret_cast<const Record*>(reinterpret_cast<const char*>(room_.get()) + at_);
        at_ += record.NextEntryOffset;
        isInPiece_ = record.NextEntryOffset != 0;
        if (!IsItselfOrAbove(record)) {
            Describe(entry, record);
            return true;
        }
    }
}

std::optional<FileIdentity> Win32FolderReader::Identity() {
    return IdentityOfOpen(folder_.get(), extendedFolder_);
}

}  // namespace ambrio
