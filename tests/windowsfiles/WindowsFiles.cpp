// Makes a process that runs under Wine see files as Windows shows them, from the moment at which
// this module is loaded into it: the archive bit, which Wine always shows as set, is set by every
// write and can be cleared; what Windows refuses because of an attribute is refused; read-only goes
// together with the other attributes.

#include <array>
#include <memory>
#include <system_error>

#include "tests/support/win32/ImportTable.h"
#include "tests/windowsfiles/Changing.h"
#include "tests/windowsfiles/FileFacts.h"
#include "tests/windowsfiles/Looking.h"

namespace ambrio::windowsfiles {
namespace {

std::unique_ptr<ClearedBits> g_bits;

template <typename Function>
Replacement Replacing(const char* name, Function* function) {
    return {name, reinterpret_cast<void*>(function)};
}

// Calls that would change a file or tell of its attributes without this module's knowing.
constexpr std::array kUnanswered = {
    "CopyFile2",
    "CopyFileA",
    "CopyFileExA",
    "CreateFile2",
    "CreateFileA",
    "CreateHardLinkW",
    "DeleteFileA",
    "FindFirstFileA",
    "GetFileAttributesA",
    "GetFileAttributesExA",
    "MoveFileA",
    "MoveFileExA",
    "MoveFileW",
    "MoveFileWithProgressW",
    "ReplaceFileW",
    "SetFileAttributesA",
    "SetFileInformationByHandle",
    "WriteFileEx",
    "WriteFileGather",
};

bool Enter() {
    const std::array replacements = {
        Replacing("CopyFileExW", &CopyFileExAsOnWindows),
        Replacing("CopyFileW", &CopyFileAsOnWindows),
        Replacing("CreateFileW", &CreateFileAsOnWindows),
        Replacing("DeleteFileW", &DeleteFileAsOnWindows),
        Replacing("FindClose", &FindCloseAsOnWindows),
        Replacing("FindFirstFileExW", &FindFirstFileExAsOnWindows),
        Replacing("FindFirstFileW", &FindFirstFileAsOnWindows),
        Replacing("FindNextFileW", &FindNextFileAsOnWindows),
        Replacing("GetFileAttributesExW", &GetFileAttributesExAsOnWindows),
        Replacing("GetFileAttributesW", &GetFileAttributesAsOnWindows),
        Replacing("GetFileInformationByHandle", &GetFileInformationAsOnWindows),
        Replacing("GetFileInformationByHandleEx", &GetFileInformationExAsOnWindows),
        Replacing("MoveFileExW", &MoveFileExAsOnWindows),
        Replacing("NtQueryDirectoryFile", &NtQueryDirectoryFileAsOnWindows),
        Replacing("NtSetInformationFile", &NtSetInformationFileAsOnWindows),
        Replacing("SetEndOfFile", &SetEndOfFileAsOnWindows),
        Replacing("SetFileAttributesW", &SetFileAttributesAsOnWindows),
        Replacing("SetFileTime", &SetFileTimeAsOnWindows),
        Replacing("WriteFile", &WriteFileAsOnWindows),
    };
    try {
        g_bits = std::make_unique<ClearedBits>();
    } catch (const std::system_error&) {
        return false;
    }
    return ReplaceImports(replacements, kUnanswered);
}

}  // namespace

ClearedBits& Bits() {
    return *g_bits;
}

}  // namespace ambrio::windowsfiles

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    return reason != DLL_PROCESS_ATTACH || ambrio::windowsfiles::Enter() ? TRUE : FALSE;
}
