#include "config/WebLink.h"

#include "platform/win32/system/AssociatedProgram.h"

namespace ambrio {
namespace {

bool Complain(HWND owner, const wchar_t* text, const wchar_t* title) {
    MessageBoxW(owner, text, title, MB_OK | MB_ICONEXCLAMATION);
    return false;
}

}  // namespace

bool OpenURL(const std::wstring& url, HWND owner) {
    const std::wstring browser = GetBrowserPath(L"htm");
    if (browser.empty()) {
        return Complain(owner, L"Could not find associated Browser", L"Browser Not Found");
    }
    return ShellOpen(browser, url, owner) || Complain(owner, L"Web Page not Opened", L"URL Failed");
}

}  // namespace ambrio
