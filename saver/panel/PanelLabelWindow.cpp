#include "saver/panel/PanelLabelWindow.h"

#include <algorithm>
#include <utility>

namespace ambrio {

PanelLabelWindow::PanelLabelWindow(HWND parent, int controlId, const RECT& place, std::wstring text,
                                   const Panel& panel)
    : controlId_(controlId), text_(std::move(text)), panel_(panel) {
    WindowDesign design = ChildDesign(L"AmbrioPanelLabel", parent, controlId, place);
    design.Text = text_.c_str();
    Create(design);
    told_ = text_;
}

PanelLabelWindow::~PanelLabelWindow() {
    Destroy();
}

void PanelLabelWindow::SetText(const std::wstring& text) {
    if (text != text_) {
        text_ = text;
        panel_.TextChanged(controlId_);
    }
}

void PanelLabelWindow::Tell() {
    if (text_ == told_ || Handle() == nullptr) {
        return;
    }
    told_ = text_;
    Window::Receive(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text_.c_str()));
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, Handle(), OBJID_CLIENT, CHILDID_SELF);
}

LRESULT PanelLabelWindow::CopyText(WPARAM capacity, wchar_t* buffer) const {
    if (capacity == 0) {
        return 0;
    }
    const std::size_t length = std::min<std::size_t>(text_.size(), capacity - 1);
    std::copy_n(text_.begin(), length, buffer);
    buffer[length] = L'\0';
    return static_cast<LRESULT>(length);
}

LRESULT PanelLabelWindow::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCHITTEST:
            return HTTRANSPARENT;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint([this](HDC target, const RECT&) { panel_.Paint(controlId_, target); });
            return 0;
        // The text is kept here and not by the system, as it changes with every file and the
        // system's own keeping costs more than drawing it: the system gets it now and then.
        case WM_SETTEXT:
            SetText(lParam == 0 ? std::wstring() : reinterpret_cast<const wchar_t*>(lParam));
            return TRUE;
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(text_.size());
        case WM_GETTEXT:
            return CopyText(wParam, reinterpret_cast<wchar_t*>(lParam));
        default:
            return Window::Receive(message, wParam, lParam);
    }
}

}  // namespace ambrio
