#include "platform/win32/system/AssociatedProgram.h"

#include <array>

#include "platform/Trim.h"
#include "platform/win32/system/Handle.h"

namespace ambrio {
namespace {

// The results of the shell's calls that mean success are larger.
constexpr INT_PTR kLastShellError = 32;

bool IsSuccess(HINSTANCE result) {
    return reinterpret_cast<INT_PTR>(result) > kLastShellError;
}

bool MakeFileOfOneLine(const std::wstring& path) {
    const auto file = MakeHandle<UniqueHandle>(CreateFileW(
        path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    constexpr char kLine[] = "abc\r\n";
    DWORD written = 0;
    return file && WriteFile(file.get(), kLine, sizeof(kLine) - 1, &written, nullptr) != FALSE;
}

}  // namespace

std::wstring GetBrowserPath(const std::wstring& ext) {
    const std::wstring file = L"~temp." + ext;
    if (!MakeFileOfOneLine(file)) {
        return {};
    }
    std::array<wchar_t, MAX_PATH + 1> path = {};
    const bool isFound = IsSuccess(FindExecutableW(file.c_str(), L"", path.data()));
    DeleteFileW(file.c_str());
    return isFound ? Trim(path.data()) : std::wstring();
}

bool ShellOpen(const std::wstring& program, const std::wstring& arguments, HWND owner) {
    return IsSuccess(
        ShellExecuteW(owner, L"open", program.c_str(), arguments.c_str(), L"", SW_SHOWNORMAL));
}

}  // namespace ambrio
