#include "platform/win32/windows/Tooltips.h"

#include "platform/win32/windows/CommonControls.h"

namespace ambrio {
namespace {

constexpr std::size_t kLongestText = 1024;
constexpr int kSecondsShown = 20;  // the system's five are too short for two sentences

TTTOOLINFOW ToolOf(HWND control) {
    TTTOOLINFOW tool = {};
    // The size that controls of every version accept.
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = GetParent(control);
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    return tool;
}

LRESULT Send(HWND tooltips, UINT message, WPARAM wParam, const TTTOOLINFOW& tool) {
    return SendMessageW(tooltips, message, wParam, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

void Tooltips::Set(HWND control, const std::wstring& text, int longestLine) {
    if (handle_ == nullptr) {
        CommonControls::InitClasses(ICC_BAR_CLASSES);
        handle_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                  WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                  CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, GetParent(control),
                                  nullptr, GetModuleHandleW(nullptr), nullptr);
        SendMessageW(handle_, TTM_SETMAXTIPWIDTH, 0, longestLine);
        SendMessageW(handle_, TTM_SETDELAYTIME, TTDT_AUTOPOP, MAKELPARAM(kSecondsShown * 1000, 0));
    }
    SetOne(control, text);
    COMBOBOXINFO parts = {};
    parts.cbSize = sizeof(parts);
    wchar_t className[16] = {};
    GetClassNameW(control, className, ARRAYSIZE(className));
    if (lstrcmpiW(className, WC_COMBOBOXW) == 0 && GetComboBoxInfo(control, &parts) != FALSE &&
        parts.hwndItem != nullptr && parts.hwndItem != control) {
        SetOne(parts.hwndItem, text);
    }
}

void Tooltips::SetOne(HWND control, const std::wstring& text) {
    TTTOOLINFOW tool = ToolOf(control);
    Send(handle_, TTM_DELTOOLW, 0, tool);
    std::wstring copy = text;
    tool.lpszText = copy.data();
    Send(handle_, TTM_ADDTOOLW, 0, tool);
}

std::wstring TooltipOf(HWND tooltips, HWND control) {
    TTTOOLINFOW tool = ToolOf(control);
    std::wstring text(kLongestText, L'\0');
    tool.lpszText = text.data();
    Send(tooltips, TTM_GETTEXTW, text.size(), tool);
    return text.c_str();
}

}  // namespace ambrio
