#include "saver/CopyFrame.h"

#include "saver/PanelControls.h"

namespace ambrio {

CopyFrame::CopyFrame(HWND parent, const RECT& place) : background_(CreateSolidBrush(colour_)) {
    WindowDesign design =
        ChildDesign(L"AmbrioCopyFrame", parent, static_cast<int>(PanelControl::fraAni), place);
    design.Style = WS_CHILD | WS_CLIPCHILDREN;
    Create(design);

    INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_ANIMATE_CLASS};
    InitCommonControlsEx(&classes);
    // Without ACS_TIMER the control would play from a thread that waits for this one.
    animation_ = CreateWindowExW(
        0, ANIMATE_CLASSW, L"", WS_CHILD | WS_VISIBLE | ACS_TRANSPARENT | ACS_CENTER | ACS_TIMER, 0,
        0, design.Width, design.Height, Handle(),
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(PanelControl::Animation1)),
        GetModuleHandleW(nullptr), nullptr);
}

CopyFrame::~CopyFrame() {
    Destroy();
}

void CopyFrame::OpenClip(const std::wstring& path) {
    SendMessageW(animation_, ACM_OPENW, 0, reinterpret_cast<LPARAM>(path.c_str()));
}

void CopyFrame::PlayClip() {
    // From the first picture to the last, again and again.
    SendMessageW(animation_, ACM_PLAY, static_cast<WPARAM>(-1), MAKELPARAM(0, -1));
}

void CopyFrame::StopClip() {
    SendMessageW(animation_, ACM_STOP, 0, 0);
}

void CopyFrame::CloseClip() {
    SendMessageW(animation_, ACM_OPENW, 0, 0);
}

void CopyFrame::Show(bool visible) {
    isShown_ = visible;
    if (visible) {
        SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
        UpdateWindow(Handle());
    } else {
        ShowWindow(Handle(), SW_HIDE);
    }
}

void CopyFrame::SetBackColor(COLORREF colour) {
    if (colour == colour_) {
        return;
    }
    colour_ = colour;
    background_.reset(CreateSolidBrush(colour));
    InvalidateRect(Handle(), nullptr, TRUE);
    InvalidateRect(animation_, nullptr, TRUE);
}

LRESULT CopyFrame::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCHITTEST:
            return HTTRANSPARENT;
        case WM_ERASEBKGND: {
            RECT area;
            GetClientRect(Handle(), &area);
            FillRect(reinterpret_cast<HDC>(wParam), &area, background_.get());
            return 1;
        }
        case WM_CTLCOLORSTATIC:  // what the clip's transparent parts show
            SetBkColor(reinterpret_cast<HDC>(wParam), colour_);
            return reinterpret_cast<LRESULT>(background_.get());
        case WM_DESTROY:
            animation_ = nullptr;
            return 0;
        default:
            return Window::Receive(message, wParam, lParam);
    }
}

}  // namespace ambrio
