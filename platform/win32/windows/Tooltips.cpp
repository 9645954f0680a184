#include "platform/win32/windows/Tooltips.h"

#include <algorithm>

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

// A disabled control gets no mouse messages. Its dialog does, so the place of the control in it has
// the text as well.
TTTOOLINFOW PlaceOf(HWND control) {
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = GetParent(control);
    tool.uId = static_cast<UINT_PTR>(GetDlgCtrlID(control));
    GetWindowRect(control, &tool.rect);
    MapWindowPoints(nullptr, tool.hwnd, reinterpret_cast<POINT*>(&tool.rect), 2);
    return tool;
}

LRESULT Send(HWND tooltips, UINT message, WPARAM wParam, const TTTOOLINFOW& tool) {
    return SendMessageW(tooltips, message, wParam, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

void Tooltips::Set(HWND control, const std::wstring& text, int longestLine) {
    if (handle_ == nullptr) {
        Make(GetParent(control), longestLine);
    }
    SetOne(control, text);
    SetPlace(control, text);
    COMBOBOXINFO parts = {};
    parts.cbSize = sizeof(parts);
    wchar_t className[16] = {};
    GetClassNameW(control, className, ARRAYSIZE(className));
    if (lstrcmpiW(className, WC_COMBOBOXW) == 0 && GetComboBoxInfo(control, &parts) != FALSE &&
        parts.hwndItem != nullptr && parts.hwndItem != control) {
        SetOne(parts.hwndItem, text);
    }
}

void Tooltips::Make(HWND dialog, int longestLine) {
    CommonControls::InitClasses(ICC_BAR_CLASSES);
    handle_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                              WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                              CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    controls_.clear();
    SendMessageW(handle_, TTM_SETMAXTIPWIDTH, 0, longestLine);
    SendMessageW(handle_, TTM_SETDELAYTIME, TTDT_AUTOPOP, MAKELPARAM(kSecondsShown * 1000, 0));
}

void Tooltips::SetPlace(HWND control, const std::wstring& text) {
    TTTOOLINFOW tool = PlaceOf(control);
    Send(handle_, TTM_DELTOOLW, 0, tool);
    std::wstring copy = text;
    tool.lpszText = copy.data();
    Send(handle_, TTM_ADDTOOLW, 0, tool);
    if (std::find(controls_.begin(), controls_.end(), control) == controls_.end()) {
        controls_.push_back(control);
    }
}

void Tooltips::Follow() {
    for (const HWND control : controls_) {
        Send(handle_, TTM_NEWTOOLRECTW, 0, PlaceOf(control));
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
