#pragma once

#include <span>
#include <utility>
#include <vector>

#include "platform/win32/windows/ScreenTwips.h"
#include "platform/win32/windows/Window.h"
#include "saver/LineCanvas.h"
#include "saver/animation/AnimatedFrame.h"
#include "saver/panel/StatusPanelView.h"

namespace ambrio {

// The panel on its form, as the animation sees it.
class PanelFrame : public AnimatedFrame {
  public:
    // Nothing is owned; everything must live longer.
    PanelFrame(const Window& form, StatusPanelView& panel, LineCanvas& canvas,
               const ScreenTwips& twips);

    [[nodiscard]] std::int32_t Left() const override { return panel_.Place().Left; }
    [[nodiscard]] std::int32_t Top() const override { return panel_.Place().Top; }
    [[nodiscard]] std::int32_t Width() const override { return panel_.Place().Width; }
    [[nodiscard]] std::int32_t Height() const override { return panel_.Place().Height; }
    [[nodiscard]] std::int32_t ParentScaleWidth() const override;
    [[nodiscard]] std::int32_t ParentScaleHeight() const override;

    [[nodiscard]] std::vector<Area> VisibleAreas() const override;

    void Move(std::int32_t left, std::int32_t top) override;
    void SetBackColor(Colour colour) override;
    void SetLabelColours(const LabelColours& colours) override;
    void DrawLines(std::span<const Line> lines, const Palette& palette) override;

    // Tells which parts of the form monitors show, in pixels of the form; all of it until then, and
    // without any.
    void See(std::vector<Area> parts) { seen_ = std::move(parts); }

    // Shows new colours, if there are any, all at once. To be called after each step.
    void Present();

  private:
    const Window& form_;
    StatusPanelView& panel_;
    LineCanvas& canvas_;
    const ScreenTwips& twips_;
    std::vector<Area> seen_;
    bool hasNewColours_ = false;
};

}  // namespace ambrio
