#include "platform/win32/files/Win32FolderReader.h"

#include <string_view>

#include "platform/RuntimeError.h"
#include "platform/win32/files/FileEntryData.h"
#include "platform/win32/files/Win32Error.h"

namespace ambrio {
namespace {

UniqueFindHandle OpenListing(const std::wstring& pattern, WIN32_FIND_DATAW& data) {
    const auto open = [&](DWORD flags) {
        return MakeHandle<UniqueFindHandle>(FindFirstFileExW(
            pattern.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, flags));
    };
    UniqueFindHandle search = open(FIND_FIRST_EX_LARGE_FETCH);
    if (!search && GetLastError() == ERROR_INVALID_PARAMETER) {
        // Some network file systems know no large pieces.
        search = open(0);
    }
    return search;
}

}  // namespace

Win32FolderReader::Win32FolderReader(const std::wstring& extendedFolder)
    : search_(OpenListing(FileSystem::BuildPath(extendedFolder, L"*"), data_)), pending_(true) {
    if (search_) {
        return;
    }
    const DWORD code = GetLastError();
    const bool nothingFound = code == ERROR_FILE_NOT_FOUND || code == ERROR_NO_MORE_FILES;
    const DWORD attributes = GetFileAttributesW(extendedFolder.c_str());
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    const bool isFolder = exists && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (nothingFound && isFolder) {
        return;  // the root of an empty volume has not even "."
    }
    if (nothingFound || (exists && !isFolder)) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    ThrowWin32(code);
}

bool Win32FolderReader::Advance() {
    if (!search_) {
        return false;
    }
    if (pending_) {
        pending_ = false;
        return true;
    }
    if (FindNextFileW(search_.get(), &data_) != 0) {
        return true;
    }
    const DWORD code = GetLastError();
    search_.reset();
    if (code != ERROR_NO_MORE_FILES) {
        ThrowWin32(code);
    }
    return false;
}

bool Win32FolderReader::Next(FileEntry& entry) {
    while (Advance()) {
        const std::wstring_view name = data_.cFileName;
        if (name == L"." || name == L"..") {
            continue;
        }
        entry.Name = name;  // in the room that the one before has left
        Describe(entry, data_);
        entry.IsOfAnotherUser = false;
        entry.IsMountPoint = entry.IsLink() && data_.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT;
        return true;
    }
    return false;
}

}  // namespace ambrio
