#include "saver/panel/ClipControl.h"

#include "platform/win32/system/SystemRedirection.h"
#include "platform/win32/windows/CommonControls.h"
#include "saver/panel/PanelControls.h"

namespace ambrio {
namespace {

constexpr int kControlId = static_cast<int>(PanelControl::Animation1);
constexpr std::uint32_t kUntouched = 0xFF000000;  // what no drawing leaves in a pixel

}  // namespace

// ACS_TIMER: no thread of the control's own, as another one would draw while its picture is taken.
ClipControl::ClipControl(const Window& parent) : parent_(parent) {
    CommonControls::InitClasses(ICC_ANIMATE_CLASS);
    RECT area{};
    GetClientRect(parent.Handle(), &area);
    CreateWindowExW(0, ANIMATE_CLASSW, L"", WS_CHILD | WS_VISIBLE | ACS_TIMER, 0, area.bottom, 0, 0,
                    parent.Handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(kControlId)),
                    GetModuleHandleW(nullptr), nullptr);
}

void ClipControl::LieBelow() {
    RECT area{};
    GetClientRect(parent_.Handle(), &area);
    SetWindowPos(Handle(), nullptr, 0, area.bottom, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
}

HWND ClipControl::Handle() const {
    return parent_.Handle() == nullptr ? nullptr : GetDlgItem(parent_.Handle(), kControlId);
}

// The control knows its first picture only when it has been told to show it.
void ClipControl::Open(const std::wstring& path) {
    picture_.reset();
    const std::wstring real = WithoutRedirection(path);
    if (SendMessageW(Handle(), ACM_OPENW, 0, reinterpret_cast<LPARAM>(real.c_str())) == FALSE) {
        return;
    }
    SendMessageW(Handle(), ACM_PLAY, 1, MAKELPARAM(0, 0));
    RECT area{};
    GetClientRect(Handle(), &area);
    if (area.right > 0 && area.bottom > 0) {
        picture_ = PixelBuffer::Make({area.right, area.bottom});
    }
    if (const PixelBuffer* first = Picture(); first != nullptr) {
        clearColour_ = first->Pixels().front();
    }
}

void ClipControl::Play() {
    constexpr WORD kLast = 0xFFFF;
    constexpr WPARAM kForEver = static_cast<UINT>(-1);
    SendMessageW(Handle(), ACM_PLAY, kForEver, MAKELPARAM(0, kLast));
}

void ClipControl::Stop() {
    SendMessageW(Handle(), ACM_STOP, 0, 0);
}

void ClipControl::Close() {
    picture_.reset();
    SendMessageW(Handle(), ACM_OPENW, 0, 0);
}

const PixelBuffer* ClipControl::Picture() {
    if (picture_ == nullptr) {
        return nullptr;
    }
    std::uint32_t& corner = picture_->Pixels().front();
    corner = kUntouched;
    SendMessageW(Handle(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(picture_->DC()), PRF_CLIENT);
    GdiFlush();
    return corner == kUntouched ? nullptr : picture_.get();
}

}  // namespace ambrio
