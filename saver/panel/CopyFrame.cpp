#include "saver/panel/CopyFrame.h"

#include "platform/win32/system/SystemRedirection.h"
#include "platform/win32/windows/CommonControls.h"
#include "resources/clip/ClipTiming.h"
#include "saver/panel/PanelControls.h"

namespace ambrio {

namespace {

constexpr UINT_PTR kPictureTimer = 1;
constexpr std::chrono::milliseconds kPictureInterval{kClipMicroseconds / 1000};

}  // namespace

CopyFrame::CopyFrame(HWND parent, const RECT& place)
    : pictures_(kPictureTimer, kPictureInterval), background_(CreateSolidBrush(colour_)) {
    WindowDesign design =
        ChildDesign(L"AmbrioCopyFrame", parent, static_cast<int>(PanelControl::fraAni), place);
    design.Style = WS_CHILD | WS_CLIPCHILDREN;
    Create(design);
    pictures_.AttachTo(Handle());

    CommonControls::InitClasses(ICC_ANIMATE_CLASS);
    animation_ = CreateWindowExW(
        0, ANIMATE_CLASSW, L"", WS_CHILD | WS_VISIBLE | ACS_TRANSPARENT | ACS_CENTER, 0, 0,
        design.Width, design.Height, Handle(),
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(PanelControl::Animation1)),
        GetModuleHandleW(nullptr), nullptr);
}

CopyFrame::~CopyFrame() {
    Destroy();
}

void CopyFrame::OpenClip(const std::wstring& path) {
    path_ = WithoutRedirection(path);
    picture_ = 0;
    SendMessageW(animation_, ACM_OPENW, 0, reinterpret_cast<LPARAM>(path_.c_str()));
}

void CopyFrame::PlayClip() {
    pictures_.SetEnabled(true);
}

void CopyFrame::StopClip() {
    pictures_.SetEnabled(false);
}

void CopyFrame::CloseClip() {
    StopClip();
    path_.clear();
    SendMessageW(animation_, ACM_OPENW, 0, 0);
}

bool CopyFrame::ShowPicture(int picture) {
    picture_ = picture;
    return SendMessageW(animation_, ACM_PLAY, 1, MAKELPARAM(picture, picture)) != FALSE;
}

void CopyFrame::NextPicture() {
    // A clip that somebody else made may have fewer.
    if (!ShowPicture((picture_ + 1) % kClipPictures)) {
        ShowPicture(0);
    }
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
    if (!path_.empty()) {
        SendMessageW(animation_, ACM_OPENW, 0, reinterpret_cast<LPARAM>(path_.c_str()));
        ShowPicture(picture_);
    }
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
        case WM_TIMER:
            if (pictures_.IsTick(wParam)) {
                NextPicture();
            }
            return 0;
        case WM_DESTROY:
            StopClip();
            animation_ = nullptr;
            return 0;
        default:
            return Window::Receive(message, wParam, lParam);
    }
}

}  // namespace ambrio
