#include "app/preview/PreviewFrame.h"

#include <algorithm>
#include <vector>

#include "platform/Twips.h"
#include "saver/SystemColour.h"
#include "saver/animation/Contrast.h"

namespace ambrio {
namespace {

constexpr TwipsSize kDesignSize{1500, 480};
constexpr int kMargin = 60;   // of the plate inside the frame, twips
constexpr int kPadding = 45;  // of the text on the plate, twips
constexpr int kCorner = 90;   // the plate's rounding, twips
constexpr int kCaptionLength = 10;

// The frame takes at most three quarters of the picture, so that it has room to move and lines are
// seen.
TwipsSize FittingSize(TwipsSize picture) {
    return {std::min(kDesignSize.Width, picture.Width * 3 / 4),
            std::min(kDesignSize.Height, picture.Height * 3 / 4)};
}

// A font whose characters are all as wide as a cell: the caption then moves by exactly one cell at
// a time.
UniqueFont MakeFont(int cellWidth, int height) {
    return UniqueFont(CreateFontW(-std::max(height, 1), std::max(cellWidth, 1), 0, 0, FW_BOLD,
                                  FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                  CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, FIXED_PITCH | FF_MODERN,
                                  L"Consolas"));
}

}  // namespace

PreviewFrame::PreviewFrame(PreviewPicture& picture, const Application& application)
    : picture_(picture),
      application_(application),
      size_(FittingSize(picture.ScaleSize())),
      left_((picture.ScaleSize().Width - size_.Width) / 2),
      top_((picture.ScaleSize().Height - size_.Height) / 2),
      buffer_(Across(size_.Width), Down(size_.Height)) {
    WindowDesign design;
    design.ClassName = L"AmbrioPreviewFrame";
    design.Text = caption_.c_str();
    design.Style = WS_CHILD | WS_VISIBLE;
    design.Left = Across(left_);
    design.Top = Down(top_);
    design.Width = Across(size_.Width);
    design.Height = Down(size_.Height);
    design.Parent = picture.Handle();
    const int cell = (design.Width - 2 * Across(kMargin + kPadding)) / kCaptionLength;
    font_ = MakeFont(cell, std::min(cell * 2, design.Height - 2 * Down(kMargin)));
    Create(design);
}

PreviewFrame::~PreviewFrame() {
    Destroy();
}

int PreviewFrame::Across(int twips) const {
    return PixelsFromTwips(twips, application_.PixelTwipsX);
}
int PreviewFrame::Down(int twips) const {
    return PixelsFromTwips(twips, application_.PixelTwipsY);
}

std::int32_t PreviewFrame::ParentScaleWidth() const {
    return picture_.ScaleSize().Width;
}
std::int32_t PreviewFrame::ParentScaleHeight() const {
    return picture_.ScaleSize().Height;
}

void PreviewFrame::Move(std::int32_t left, std::int32_t top) {
    left_ = left;
    top_ = top;
    SetWindowPos(Handle(), nullptr, Across(left), Down(top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PreviewFrame::SetBackColor(Colour colour) {
    backColor_ = colour;
    isStale_ = true;
}

void PreviewFrame::SetLabelColours(const LabelColours& colours) {
    colours_ = colours;
    isStale_ = true;
}

void PreviewFrame::SetCaption(const std::wstring& caption) {
    caption_ = caption;
    SetWindowTextW(Handle(), caption.c_str());
    isStale_ = true;
}

void PreviewFrame::Repaint() {
    if (isStale_) {
        InvalidateRect(Handle(), nullptr, FALSE);
        UpdateWindow(Handle());
    }
}

LRESULT PreviewFrame::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ERASEBKGND) {
        return 1;
    }
    if (message != WM_PAINT) {
        return Window::Receive(message, wParam, lParam);
    }
    if (isStale_) {
        DrawPicture();
        isStale_ = false;
    }
    Paint([this](HDC target, const RECT& part) {
        buffer_.CopyTo(target, part.left, part.top, part);
    });
    return 0;
}

void PreviewFrame::DrawPicture() {
    const HDC dc = buffer_.DC();
    const Colour border = BorderColourOn(backColor_, colours_.Plate);
    const UniqueBrush frame(CreateSolidBrush(SystemColour(border)));
    const UniqueBrush plate(CreateSolidBrush(SystemColour(colours_.Plate)));
    const RECT all{0, 0, buffer_.Width(), buffer_.Height()};
    FillRect(dc, &all, frame.get());
    const RECT inner{Across(kMargin), Down(kMargin), all.right - Across(kMargin),
                     all.bottom - Down(kMargin)};
    const SelectedObject pen(dc, GetStockObject(NULL_PEN));
    const SelectedObject brush(dc, plate.get());
    RoundRect(dc, inner.left, inner.top, inner.right + 1, inner.bottom + 1, Across(kCorner),
              Down(kCorner));
    DrawCaption(inner);
}

// Each character in a cell of its own, as wide as the next one.
void PreviewFrame::DrawCaption(const RECT& plate) {
    const HDC dc = buffer_.DC();
    const int cell = (plate.right - plate.left - 2 * Across(kPadding)) / kCaptionLength;
    const std::vector<INT> cells(caption_.size(), std::max(cell, 0));
    const SelectedObject font(dc, font_.get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, SystemColour(colours_.Text));
    const int width = cell * static_cast<int>(caption_.size());
    const int left = plate.left + (plate.right - plate.left - width) / 2;
    const int top = plate.top + (plate.bottom - plate.top - metrics.tmHeight) / 2;
    ExtTextOutW(dc, left, top, 0, nullptr, caption_.c_str(), static_cast<UINT>(caption_.size()),
                cells.data());
}

}  // namespace ambrio
