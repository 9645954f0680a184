#include "saver/panel/CopyFrame.h"

#include <algorithm>

#include "resources/clip/ClipTiming.h"
#include "saver/model/ClipScaling.h"
#include "saver/panel/PanelControls.h"

namespace ambrio {

namespace {

constexpr UINT_PTR kPictureTimer = 1;

// As pixels in memory have it.
std::uint32_t PixelOf(COLORREF colour) {
    return static_cast<std::uint32_t>(GetRValue(colour) << 16 | GetGValue(colour) << 8 |
                                      GetBValue(colour));
}

SIZE SizeOf(const RECT& place) {
    return {place.right - place.left, place.bottom - place.top};
}

}  // namespace

CopyFrame::CopyFrame(HWND parent, const RECT& place, double pixelSize, COLORREF colour)
    : pixelSize_(pixelSize),
      pictures_(kPictureTimer, clip::kPictureTime),
      picture_(PixelBuffer::Make(SizeOf(place))),
      colour_(colour) {
    WindowDesign design =
        ChildDesign(L"AmbrioCopyFrame", parent, static_cast<int>(PanelControl::fraAni), place);
    design.Style = WS_CHILD | WS_CLIPCHILDREN;
    Create(design);
    pictures_.AttachTo(Handle());
    clip_ = std::make_unique<ClipControl>(*this);
}

CopyFrame::~CopyFrame() {
    Destroy();
}

void CopyFrame::OpenClip(const std::wstring& path) {
    clip_->Open(path);
    Redraw();
}

void CopyFrame::PlayClip() {
    clip_->Play();
    pictures_.SetEnabled(true);
}

void CopyFrame::StopClip() {
    pictures_.SetEnabled(false);
    clip_->Stop();
}

void CopyFrame::CloseClip() {
    StopClip();
    clip_->Close();
    Redraw();
}

void CopyFrame::Show(bool visible) {
    isShown_ = visible && Handle() != nullptr;
    if (isShown_) {
        // Not in any case: in a run over many files it comes and goes with each that is copied.
        if (isStale_) {
            Draw();
        }
        SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    } else {
        ShowWindow(Handle(), SW_HIDE);
    }
}

void CopyFrame::Resize(const RECT& place, double pixelSize) {
    pixelSize_ = pixelSize;
    const auto [width, height] = SizeOf(place);
    picture_ = PixelBuffer::Make({width, height});
    SetWindowPos(Handle(), nullptr, place.left, place.top, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW | SWP_NOCOPYBITS);
    clip_->LieBelow();
    Redraw();
}

void CopyFrame::SetBackColor(COLORREF colour) {
    if (colour != colour_) {
        colour_ = colour;
        Redraw();
    }
    if (isShown_) {
        UpdateWindow(Handle());
    }
}

void CopyFrame::Repaint() {
    if (isShown_) {
        InvalidateRect(Handle(), nullptr, FALSE);
    }
}

// A hidden frame is drawn when it is shown.
void CopyFrame::Redraw() {
    isStale_ = true;
    if (isShown_) {
        Draw();
        Repaint();
    }
}

void CopyFrame::Draw() {
    isStale_ = false;
    if (picture_ != nullptr) {
        GdiFlush();  // copies that are still going on
        std::fill(picture_->Pixels().begin(), picture_->Pixels().end(), PixelOf(colour_));
        DrawClip();
    }
}

void CopyFrame::DrawClip() {
    const PixelBuffer* clip = clip_->Picture();
    if (clip == nullptr) {
        return;
    }
    const auto [width, height] = clip->Size();
    const auto [roomAcross, roomDown] = picture_->Size();
    const double scale = ClipScale(width, height, roomAcross, roomDown, pixelSize_);
    ScaledPicture(clip->Pixels(), width, clip_->ClearColour(), scale)
        .DrawInto(picture_->Pixels(), roomAcross);
}

LRESULT CopyFrame::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCHITTEST:
            return HTTRANSPARENT;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint([this](HDC target, const RECT& part) {
                if (picture_ != nullptr) {
                    picture_->CopyTo(target, part);
                }
            });
            return 0;
        case WM_PRINTCLIENT:
            if (picture_ != nullptr) {
                const auto [width, height] = picture_->Size();
                picture_->CopyTo(reinterpret_cast<HDC>(wParam), {0, 0, width, height});
            }
            return 0;
        case WM_TIMER:
            if (pictures_.IsTick(wParam)) {
                Redraw();
            }
            return 0;
        case WM_DESTROY:
            pictures_.SetEnabled(false);
            pictures_.AttachTo(nullptr);
            isShown_ = false;
            return 0;
        default:
            return Window::Receive(message, wParam, lParam);
    }
}

}  // namespace ambrio
