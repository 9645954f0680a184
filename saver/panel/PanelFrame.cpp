#include "saver/panel/PanelFrame.h"

#include <cmath>
#include <utility>

namespace ambrio {

PanelFrame::PanelFrame(const Window& form, StatusPanelView& panel, LineCanvas& canvas,
                       const ScreenTwips& twips)
    : form_(form), panel_(panel), canvas_(canvas), twips_(twips) {}

std::int32_t PanelFrame::ParentScaleWidth() const {
    RECT area{};
    GetClientRect(form_.Handle(), &area);
    return static_cast<std::int32_t>(std::lround(area.right * twips_.X));
}

std::int32_t PanelFrame::ParentScaleHeight() const {
    RECT area{};
    GetClientRect(form_.Handle(), &area);
    return static_cast<std::int32_t>(std::lround(area.bottom * twips_.Y));
}

std::vector<Area> PanelFrame::VisibleAreas() const {
    if (seen_.empty()) {
        return AnimatedFrame::VisibleAreas();
    }
    const auto twips = [](std::int32_t pixels, double twipsPerPixel) {
        return static_cast<std::int32_t>(std::lround(pixels * twipsPerPixel));
    };
    std::vector<Area> areas;
    for (const Area& part : seen_) {
        areas.push_back({twips(part.Left, twips_.X), twips(part.Top, twips_.Y),
                         twips(part.Right, twips_.X), twips(part.Bottom, twips_.Y)});
    }
    return areas;
}

void PanelFrame::Move(std::int32_t left, std::int32_t top) {
    const TwipsRect before = panel_.Place();
    panel_.Move(left, top);
    canvas_.Repaint(PixelsOfTwips(before, twips_.X, twips_.Y));
}

void PanelFrame::SetBackColor(Colour colour) {
    panel_.SetBackColor(colour);
    hasNewColours_ = true;
}

void PanelFrame::SetLabelColours(const LabelColours& colours) {
    panel_.SetLabelColours(colours);
    hasNewColours_ = true;
}

void PanelFrame::DrawLines(std::span<const Line> lines, const Palette& palette) {
    canvas_.Draw(lines, palette, twips_);
}

void PanelFrame::Present() {
    if (std::exchange(hasNewColours_, false)) {
        panel_.Redraw();
    }
}

}  // namespace ambrio
