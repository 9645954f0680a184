#include "saver/panel/StatusPanelView.h"

#include <algorithm>
#include <utility>

#include "platform/Twips.h"
#include "saver/Press.h"
#include "saver/SystemColour.h"

namespace ambrio {
namespace {

constexpr int kDesignResolution = 96;

std::size_t IndexOf(int controlId) {
    const auto found = std::find_if(kPanelLabels.begin(), kPanelLabels.end(),
                                    [controlId](const PanelLabelDesign& design) {
                                        return static_cast<int>(design.Control) == controlId;
                                    });
    return static_cast<std::size_t>(found - kPanelLabels.begin());
}

std::size_t IndexOf(PanelLabel label) {
    return IndexOf(static_cast<int>(ControlOf(label)));
}

}  // namespace

StatusPanelView::StatusPanelView(HWND form, double twipsPerPixelX, double twipsPerPixelY,
                                 const std::wstring& slogan, std::function<void()> mouseDown)
    : twipsPerPixelX_(twipsPerPixelX),
      twipsPerPixelY_(twipsPerPixelY),
      mouseDown_(std::move(mouseDown)) {
    labelPanel_.TextChanged = [this](int controlId) { RedrawLabel(IndexOf(controlId)); };
    labelPanel_.Paint = [this](int controlId, HDC target) {
        painter_->Picture().CopyTo(target, 0, 0, PixelsOf(kPanelLabels[IndexOf(controlId)].Place));
    };
    WindowDesign design = ChildDesign(L"AmbrioStatusPanel", form,
                                      static_cast<int>(PanelControl::fraStatus), PixelsOf(place_));
    design.Text = kPanelDesignTitle;
    // Not visible before there is something to show. No WS_CLIPCHILDREN: the panel draws what its
    // labels show.
    design.Style = WS_CHILD | WS_CLIPSIBLINGS;
    design.ClassStyle = CS_OWNDC;
    Create(design);
    dc_ = GetDC(Handle());
    MakeLabels(slogan);
    painter_ = std::make_unique<PanelPainter>(twipsPerPixelX_, twipsPerPixelY_, texts_);
    copyFrame_ = std::make_unique<CopyFrame>(Handle(), PixelsOf(kCopyFramePlace), PixelSize(),
                                             SystemColour(painter_->PlateColor()));
    painter_->DrawFrame(texts_);
    RoundCorners();
    ShowWindow(Handle(), SW_SHOWNA);
}

StatusPanelView::~StatusPanelView() {
    Destroy();
}

RECT StatusPanelView::PixelsOf(const TwipsRect& place) const {
    return PixelsOfTwips(place, twipsPerPixelX_, twipsPerPixelY_);
}

double StatusPanelView::PixelSize() const {
    return TwipsPerPixel(kDesignResolution) / twipsPerPixelX_;
}

RECT StatusPanelView::WholePicture() const {
    return {0, 0, painter_->Picture().Width(), painter_->Picture().Height()};
}

// What lies behind the panel is seen around its corners.
void StatusPanelView::RoundCorners() {
    const RECT whole = WholePicture();
    const auto [across, down] = painter_->Rounding();
    // The region is a pixel smaller than it is told to be, and the window owns it from then on.
    SetWindowRgn(Handle(),
                 CreateRoundRectRgn(0, 0, whole.right + 1, whole.bottom + 1, across, down), FALSE);
}

void StatusPanelView::MakeLabels(const std::wstring& slogan) {
    for (std::size_t i = 0; i < kPanelLabels.size(); ++i) {
        const PanelLabelDesign& design = kPanelLabels[i];
        labels_[i] = std::make_unique<PanelLabelWindow>(
            Handle(), static_cast<int>(design.Control), PixelsOf(design.Place),
            design.Caption == nullptr ? slogan : design.Caption, labelPanel_);
        texts_[i] = &labels_[i]->Text();
    }
}

void StatusPanelView::SetCaption(PanelLabel label, const std::wstring& caption) {
    labels_[IndexOf(label)]->SetText(caption);
}

void StatusPanelView::Tell() {
    for (const auto& label : labels_) {
        label->Tell();
    }
}

void StatusPanelView::SetTitle(const std::wstring& caption) {
    SetWindowTextW(Handle(), caption.c_str());
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, Handle(), OBJID_CLIENT, CHILDID_SELF);
    painter_->SetCaption(caption);
    Redraw();
}

void StatusPanelView::OpenClip(const std::wstring& path) {
    copyFrame_->OpenClip(path);
}
void StatusPanelView::PlayClip() {
    isClipPlaying_ = true;
    if (isSeen_) {
        copyFrame_->PlayClip();
    }
}
void StatusPanelView::StopClip() {
    isClipPlaying_ = false;
    copyFrame_->StopClip();
}
// Nothing is copied any more, so the frame goes with the clip.
void StatusPanelView::CloseClip() {
    isClipPlaying_ = false;
    copyFrame_->CloseClip();
    ShowCopyFrame(false);
}

void StatusPanelView::ShowCopyFrame(bool visible) {
    copyFrame_->Show(visible);
    KeepClearOfCopyFrame();
    if (!visible) {
        Show(PixelsOf(kCopyFramePlace));
    }
}

void StatusPanelView::MatchCopyFrameColour() {
    copyFrame_->SetBackColor(SystemColour(painter_->PlateColor()));
}

void StatusPanelView::Move(int left, int top) {
    place_.Left = left;
    place_.Top = top;
    // Without the system's own copying and redrawing, which cost several times as much as this.
    SetWindowPos(Handle(), nullptr, PixelsFromTwips(left, twipsPerPixelX_),
                 PixelsFromTwips(top, twipsPerPixelY_), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW | SWP_NOCOPYBITS |
                     SWP_NOSENDCHANGING);
    Show(WholePicture());
    copyFrame_->Repaint();
}

void StatusPanelView::Rescale(double twipsPerPixelX, double twipsPerPixelY) {
    twipsPerPixelX_ = twipsPerPixelX;
    twipsPerPixelY_ = twipsPerPixelY;
    auto painter = std::make_unique<PanelPainter>(twipsPerPixelX, twipsPerPixelY, texts_);
    painter->LookLike(*painter_);
    painter_ = std::move(painter);
    painter_->DrawFrame(texts_);
    if (Handle() == nullptr) {
        return;
    }
    PlaceWindows();
    RoundCorners();
    KeepClearOfCopyFrame();
    Show(WholePicture());
}

// Nothing is redrawn by the system, which would show halves of it.
void StatusPanelView::PlaceWindows() {
    constexpr UINT kFlags = SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW | SWP_NOCOPYBITS;
    for (std::size_t i = 0; i < kPanelLabels.size(); ++i) {
        const RECT place = PixelsOf(kPanelLabels[i].Place);
        SetWindowPos(labels_[i]->Handle(), nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, kFlags);
    }
    SetWindowPos(Handle(), nullptr, PixelsFromTwips(place_.Left, twipsPerPixelX_),
                 PixelsFromTwips(place_.Top, twipsPerPixelY_), WholePicture().right,
                 WholePicture().bottom, kFlags);
    copyFrame_->Resize(PixelsOf(kCopyFramePlace), PixelSize());
}

void StatusPanelView::SetBackColor(Colour colour) {
    painter_->SetBackColor(colour);
}

void StatusPanelView::SetLabelColours(const LabelColours& colours) {
    painter_->SetLabelColours(colours);
}

void StatusPanelView::SetSeen(bool isSeen) {
    if (isSeen == isSeen_) {
        return;
    }
    isSeen_ = isSeen;
    if (!isSeen) {
        copyFrame_->StopClip();
        return;
    }
    Redraw();
    if (isClipPlaying_) {
        copyFrame_->PlayClip();
    }
}

void StatusPanelView::Redraw() {
    if (!isSeen_) {
        return;
    }
    painter_->DrawFrame(texts_);
    Show(WholePicture());
}

void StatusPanelView::RedrawLabel(std::size_t label) {
    if (isSeen_) {
        Show(painter_->DrawLabel(label, texts_));
    }
}

// Copies a part of the picture to the screen at once, without waiting for a WM_PAINT.
void StatusPanelView::Show(const RECT& part) {
    if (isSeen_ && Handle() != nullptr) {
        CopyPicture(dc_, part);
    }
}

void StatusPanelView::CopyPicture(HDC target, const RECT& part) const {
    painter_->Picture().CopyTo(target, part.left, part.top, part);
}

// The window's own device context is told once, when the frame appears or becomes another size.
void StatusPanelView::KeepClearOfCopyFrame() {
    if (Handle() != nullptr) {
        SelectClipRgn(dc_, nullptr);
        KeepClearOfCopyFrame(dc_);
    }
}

void StatusPanelView::KeepClearOfCopyFrame(HDC target) const {
    if (copyFrame_->IsShown()) {
        const RECT covered = PixelsOf(kCopyFramePlace);
        ExcludeClipRect(target, covered.left, covered.top, covered.right, covered.bottom);
    }
}

LRESULT StatusPanelView::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint([this](HDC target, const RECT& part) { CopyPicture(target, part); });
            return 0;
        case WM_PRINTCLIENT:
            KeepClearOfCopyFrame(reinterpret_cast<HDC>(wParam));
            CopyPicture(reinterpret_cast<HDC>(wParam), WholePicture());
            return 0;
        default:
            if (!IsPress(message)) {
                return Window::Receive(message, wParam, lParam);
            }
            mouseDown_();
            return 0;
    }
}

}  // namespace ambrio
