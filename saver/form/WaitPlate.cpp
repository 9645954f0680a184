#include "saver/form/WaitPlate.h"

#include <algorithm>

#include "platform/win32/windows/ScreenTwips.h"

namespace ambrio {
namespace {

constexpr COLORREF kBackColour = RGB(26, 28, 38);
constexpr COLORREF kBorderColour = RGB(120, 126, 150);
constexpr COLORREF kTextColour = RGB(242, 243, 248);
constexpr UINT kLines = DT_CENTER | DT_NOPREFIX | DT_END_ELLIPSIS;

// The face of the system's own messages, half as large again.
UniqueFont MakeFont(int dotsPerInch) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    LOGFONTW& face = metrics.lfMessageFont;
    const int systemDotsPerInch = GetDeviceCaps(WindowDC(nullptr).get(), LOGPIXELSY);
    face.lfHeight = MulDiv(face.lfHeight + face.lfHeight / 2, dotsPerInch, systemDotsPerInch);
    return UniqueFont(CreateFontIndirectW(&face));
}

// The part of the form that the primary monitor shows; a form that spreads over several has its
// middle where nobody may look.
SIZE SeenPartOf(HWND form) {
    RECT area{};
    GetClientRect(form, &area);
    return {std::min<LONG>(area.right, GetSystemMetrics(SM_CXSCREEN)),
            std::min<LONG>(area.bottom, GetSystemMetrics(SM_CYSCREEN))};
}

}  // namespace

WaitPlate::WaitPlate(HWND form) : form_(form), font_(MakeFont(DotsPerInchOf(form))) {
    WindowDesign design = ChildDesign(L"AmbrioWaitPlate", form, 0, RECT{});
    design.Style = WS_CHILD | WS_CLIPSIBLINGS;
    Create(design);
}

WaitPlate::~WaitPlate() {
    Destroy();
}

void WaitPlate::SetResolution(int dotsPerInch) {
    font_ = MakeFont(dotsPerInch);
    if (Handle() != nullptr && !text_.empty()) {
        Place();
        InvalidateRect(Handle(), nullptr, FALSE);
    }
}

void WaitPlate::Say(const std::wstring& text) {
    if (text == text_ || Handle() == nullptr) {
        return;
    }
    text_ = text;
    SetWindowTextW(Handle(), text.c_str());
    if (text.empty()) {
        ShowWindow(Handle(), SW_HIDE);
        return;
    }
    Place();
    InvalidateRect(Handle(), nullptr, FALSE);
    UpdateWindow(Handle());
}

// As large as the text; a name that is too long for the form is cut when it is drawn.
void WaitPlate::Place() {
    const WindowDC dc(Handle());
    const SelectedObject font(dc.get(), font_.get());
    RECT text{};
    DrawTextW(dc.get(), text_.c_str(), -1, &text, kLines | DT_CALCRECT);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.get(), &metrics);
    const SIZE form = SeenPartOf(form_);
    const LONG width = std::min(form.cx, text.right + 4 * metrics.tmHeight);
    const LONG height = std::min(form.cy, text.bottom + 2 * metrics.tmHeight);
    SetWindowPos(Handle(), HWND_TOP, (form.cx - width) / 2, (form.cy - height) / 2, width, height,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void WaitPlate::Draw(HDC target) const {
    RECT area{};
    GetClientRect(Handle(), &area);
    const UniqueBrush back(CreateSolidBrush(kBackColour));
    const UniqueBrush border(CreateSolidBrush(kBorderColour));
    FillRect(target, &area, back.get());
    FrameRect(target, &area, border.get());
    const SelectedObject font(target, font_.get());
    SetTextColor(target, kTextColour);
    SetBkMode(target, TRANSPARENT);
    TEXTMETRICW metrics{};
    GetTextMetricsW(target, &metrics);
    InflateRect(&area, -metrics.tmHeight, -metrics.tmHeight);
    DrawTextW(target, text_.c_str(), -1, &area, kLines);
}

LRESULT WaitPlate::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint([this](HDC target, const RECT&) { Draw(target); });
            return 0;
        case WM_NCHITTEST:
            return HTTRANSPARENT;
        default:
            return Window::Receive(message, wParam, lParam);
    }
}

}  // namespace ambrio
