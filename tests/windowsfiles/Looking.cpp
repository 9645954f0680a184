#include "tests/windowsfiles/Looking.h"

#include <map>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/win32/NtStatus.h"
#include "platform/win32/files/NtQueryDirectoryFile.h"
#include "platform/win32/system/TextOfCall.h"
#include "tests/windowsfiles/FileFacts.h"

namespace ambrio::windowsfiles {
namespace {

// Which folder, with the separator at its end, a search goes through.
class Searches {
  public:
    void Add(HANDLE search, const std::wstring& folder) {
        const std::scoped_lock lock(mutex_);
        folders_[search] = folder;
    }
    [[nodiscard]] std::wstring FolderOf(HANDLE search) {
        const std::scoped_lock lock(mutex_);
        const auto found = folders_.find(search);
        return found == folders_.end() ? std::wstring() : found->second;
    }
    void Forget(HANDLE search) {
        const std::scoped_lock lock(mutex_);
        folders_.erase(search);
    }

  private:
    std::mutex mutex_;
    std::map<HANDLE, std::wstring> folders_;
};

Searches& OpenSearches() {
    static Searches searches;
    return searches;
}

// The folder with the separator at its end.
std::wstring FolderOf(HANDLE folder) {
    std::wstring path = TextOfCall([folder](wchar_t* text, DWORD size) {
        return GetFinalPathNameByHandleW(folder, text, size, VOLUME_NAME_DOS);
    });
    if (!path.ends_with(L'\\')) {
        path += L'\\';
    }
    return path;
}

void CorrectRecords(char* record, const std::wstring& folder) {
    for (;;) {
        auto& entry = *reinterpret_cast<FILE_FULL_DIR_INFORMATION*>(record);
        const std::wstring name(&entry.FileName[0], entry.FileNameLength / sizeof(wchar_t));
        Correct(entry.FileAttributes, (folder + name).c_str());
        if (entry.NextEntryOffset == 0) {
            return;
        }
        record += entry.NextEntryOffset;
    }
}

void CorrectFound(WIN32_FIND_DATAW& data, const std::wstring& folder) {
    Correct(data.dwFileAttributes, (folder + data.cFileName).c_str());
}

}  // namespace

DWORD WINAPI GetFileAttributesAsOnWindows(LPCWSTR path) {
    DWORD attributes = GetFileAttributesW(path);
    Correct(attributes, path);
    return attributes;
}

BOOL WINAPI GetFileAttributesExAsOnWindows(LPCWSTR path, GET_FILEEX_INFO_LEVELS level,
                                           LPVOID data) {
    const BOOL done = GetFileAttributesExW(path, level, data);
    if (done != FALSE) {
        Correct(static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data)->dwFileAttributes, path);
    }
    return done;
}

BOOL WINAPI GetFileInformationAsOnWindows(HANDLE file, LPBY_HANDLE_FILE_INFORMATION information) {
    const BOOL done = GetFileInformationByHandle(file, information);
    if (done != FALSE) {
        Correct(information->dwFileAttributes, *information);
    }
    return done;
}

BOOL WINAPI GetFileInformationExAsOnWindows(HANDLE file, FILE_INFO_BY_HANDLE_CLASS what,
                                            LPVOID data, DWORD size) {
    constexpr int kWhetherCasesAreToldApart = 23;
    const bool isTag = what == FileAttributeTagInfo;
    if (!isTag && static_cast<int>(what) != kWhetherCasesAreToldApart) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const BOOL done = GetFileInformationByHandleEx(file, what, data, size);
    if (const auto information = InformationOf(file); isTag && done != FALSE && information) {
        Correct(static_cast<FILE_ATTRIBUTE_TAG_INFO*>(data)->FileAttributes, *information);
    }
    return done;
}

NTSTATUS NTAPI NtQueryDirectoryFileAsOnWindows(HANDLE folder, HANDLE event, PIO_APC_ROUTINE routine,
                                               PVOID context, PIO_STATUS_BLOCK status, PVOID data,
                                               ULONG size, FILE_INFORMATION_CLASS kind,
                                               BOOLEAN single, PUNICODE_STRING mask,
                                               BOOLEAN restart) {
    if (kind != FileFullDirectoryInformation || single != FALSE || mask != nullptr) {
        return kStatusNotSupported;
    }
    const NTSTATUS result = NtQueryDirectoryFile(folder, event, routine, context, status, data,
                                                 size, kind, single, mask, restart);
    if (result >= 0 && status->Information > 0 && !Bits().IsEmpty()) {
        CorrectRecords(static_cast<char*>(data), FolderOf(folder));
    }
    return result;
}

HANDLE WINAPI FindFirstFileAsOnWindows(LPCWSTR pattern, LPWIN32_FIND_DATAW data) {
    return FindFirstFileExAsOnWindows(pattern, FindExInfoStandard, data, FindExSearchNameMatch,
                                      nullptr, 0);
}

HANDLE WINAPI FindFirstFileExAsOnWindows(LPCWSTR pattern, FINDEX_INFO_LEVELS level, LPVOID data,
                                         FINDEX_SEARCH_OPS operation, LPVOID filter, DWORD flags) {
    const HANDLE search = FindFirstFileExW(pattern, level, data, operation, filter, flags);
    if (search != INVALID_HANDLE_VALUE) {
        const std::wstring_view whole = pattern;
        const std::wstring folder(whole.substr(0, whole.find_last_of(L"\\/:") + 1));
        OpenSearches().Add(search, folder);
        CorrectFound(*static_cast<WIN32_FIND_DATAW*>(data), folder);
    }
    return search;
}

BOOL WINAPI FindNextFileAsOnWindows(HANDLE search, LPWIN32_FIND_DATAW data) {
    const BOOL found = FindNextFileW(search, data);
    if (found != FALSE) {
        CorrectFound(*data, OpenSearches().FolderOf(search));
    }
    return found;
}

BOOL WINAPI FindCloseAsOnWindows(HANDLE search) {
    // First, because the number of the handle may be another search's as soon as it is closed.
    OpenSearches().Forget(search);
    return FindClose(search);
}

}  // namespace ambrio::windowsfiles
