#include "platform/win32/files/RenameOpenFile.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/win32/NativeHeaders.h"

namespace ambrio {
namespace {

// Of the system's documented classes, which not every header names.
constexpr auto kFileRenameInformation = static_cast<FILE_INFORMATION_CLASS>(10);

// "\\?\" is the programs' way to write the system's own "\??\".
std::wstring NativePath(std::wstring extended) {
    extended[1] = L'?';
    return extended;
}

}  // namespace

DWORD RenameOpenFile(HANDLE file, const std::wstring& extended, bool overwrite) {
    const std::wstring name = NativePath(extended);
    // The system's record ends in as many characters as the name has.
    std::vector<FILE_RENAME_INFORMATION> record(
        1 + name.size() * sizeof(wchar_t) / sizeof(FILE_RENAME_INFORMATION) + 1);
    FILE_RENAME_INFORMATION& rename = record.front();
    rename.ReplaceIfExists = overwrite ? TRUE : FALSE;
    rename.FileNameLength = static_cast<ULONG>(name.size() * sizeof(wchar_t));
    std::copy(name.begin(), name.end(), &rename.FileName[0]);
    IO_STATUS_BLOCK result;
    const NTSTATUS status =
        NtSetInformationFile(file, &result, record.data(),
                             static_cast<ULONG>(record.size() * sizeof(FILE_RENAME_INFORMATION)),
                             kFileRenameInformation);
    return status >= 0 ? ERROR_SUCCESS : RtlNtStatusToDosError(status);
}

}  // namespace ambrio
