#include "config/WebLink.h"

#include <array>

#include "platform/Trim.h"

namespace ambrio {
namespace {

// The results of the shell's calls that mean success are larger.
constexpr INT_PTR kLastShellError = 32;

bool WriteLine(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return false;
    }
    constexpr char kLine[] = "abc\r\n";
    DWORD written = 0;
    const BOOL isWritten = WriteFile(file, kLine, sizeof(kLine) - 1, &written, nullptr);
    CloseHandle(file);
    return isWritten != FALSE;
}

bool Complain(HWND owner, const wchar_t* text, const wchar_t* title) {
    MessageBoxW(owner, text, title, MB_OK | MB_ICONEXCLAMATION);
    return false;
}

}  // namespace

std::wstring GetBrowserPath(const std::wstring& ext) {
    const std::wstring file = L"~temp." + ext;
    if (!WriteLine(file)) {
        return {};
    }
    std::array<wchar_t, MAX_PATH + 1> path = {};
    const auto found = reinterpret_cast<INT_PTR>(FindExecutableW(file.c_str(), L"", path.data()));
    DeleteFileW(file.c_str());
    return found > kLastShellError ? Trim(path.data()) : std::wstring();
}

bool OpenURL(const std::wstring& url, HWND owner) {
    const std::wstring browser = GetBrowserPath(L"htm");
    if (browser.empty()) {
        return Complain(owner, L"Could not find associated Browser", L"Browser Not Found");
    }
    const auto opened = reinterpret_cast<INT_PTR>(
        ShellExecuteW(owner, L"open", browser.c_str(), url.c_str(), L"", SW_SHOWNORMAL));
    return opened > kLastShellError || Complain(owner, L"Web Page not Opened", L"URL Failed");
}

}  // namespace ambrio
