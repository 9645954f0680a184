#include "app/preview/PreviewPicture.h"

#include <utility>

#include "platform/Twips.h"

namespace ambrio {

PreviewPicture::PreviewPicture(HWND form, const Application& application)
    : form_(form), application_(application) {
    WindowDesign design;
    design.ClassName = L"AmbrioPreviewPicture";
    design.Style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    design.Parent = form;
    Create(design);
    canvas_ = std::make_unique<LineCanvas>(*this);
}

PreviewPicture::~PreviewPicture() {
    Destroy();
}

void PreviewPicture::ReplaceProcedure() {
    SavedPictureProc_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        Handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ReplacementProcedure)));
}

WNDPROC PreviewPicture::TakeSavedProcedure() {
    return std::exchange(SavedPictureProc_, nullptr);
}

void PreviewPicture::Resize(TwipsSize size) {
    size_ = size;
    SetWindowPos(Handle(), nullptr, 0, 0, PixelsFromTwips(size.Width, application_.PixelTwipsX),
                 PixelsFromTwips(size.Height, application_.PixelTwipsY),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void PreviewPicture::Activate(HWND preview) {
    SetParent(Handle(), preview);
    PreviewActive_ = true;
}

void PreviewPicture::DrawLines(std::span<const Line> lines, const Palette& palette) {
    canvas_->Draw(lines, palette,
                  {static_cast<double>(application_.PixelTwipsX),
                   static_cast<double>(application_.PixelTwipsY)});
}

LRESULT CALLBACK PreviewPicture::ReplacementProcedure(HWND handle, UINT message, WPARAM wParam,
                                                      LPARAM lParam) {
    auto* window = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    auto* picture = static_cast<PreviewPicture*>(window);
    if (picture == nullptr || picture->SavedPictureProc_ == nullptr) {
        return 0;
    }
    if (message != WM_CLOSE) {
        return CallWindowProcW(picture->SavedPictureProc_, handle, message, wParam, lParam);
    }
    SetParent(handle, picture->form_);
    picture->PreviewActive_ = false;
    return 0;
}

LRESULT PreviewPicture::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint([this](HDC target, const RECT& part) { canvas_->Paint(target, part); });
            return 0;
        case WM_DESTROY:
            PreviewActive_ = false;
            return 0;
        default:
            return Window::Receive(message, wParam, lParam);
    }
}

}  // namespace ambrio
