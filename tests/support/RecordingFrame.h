#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "saver/animation/AnimatedFrame.h"

namespace ambrio {

// A frame that is nowhere but in this record.
class RecordingFrame : public AnimatedFrame {
  public:
    struct Size {
        std::int32_t Width;
        std::int32_t Height;
    };

    RecordingFrame(Size frame, Size form) : frame_(frame), form_(form) {}

    [[nodiscard]] std::int32_t Left() const override { return left_; }
    [[nodiscard]] std::int32_t Top() const override { return top_; }
    [[nodiscard]] std::int32_t Width() const override { return frame_.Width; }
    [[nodiscard]] std::int32_t Height() const override { return frame_.Height; }
    [[nodiscard]] std::int32_t ParentScaleWidth() const override { return form_.Width; }
    [[nodiscard]] std::int32_t ParentScaleHeight() const override { return form_.Height; }
    void Move(std::int32_t left, std::int32_t top) override {
        left_ = left;
        top_ = top;
        ++Calls;
    }
    void SetBackColor(Colour colour) override {
        BackColor = colour;
        ++Calls;
    }
    void SetLabelColours(const LabelColours& colours) override {
        Labels = colours;
        ++Calls;
    }
    void DrawLines(std::span<const Line> lines, const Palette& palette) override {
        Lines.assign(lines.begin(), lines.end());
        LineColours = palette;
        ++Calls;
    }
    void ResizeForm(Size form) { form_ = form; }
    // Nothing but these parts of the form can be seen from now on.
    void See(std::vector<Area> areas) { areas_ = std::move(areas); }
    [[nodiscard]] std::vector<Area> VisibleAreas() const override {
        return areas_.empty() ? AnimatedFrame::VisibleAreas() : areas_;
    }

    Colour BackColor;
    LabelColours Labels;
    std::vector<Line> Lines;
    Palette LineColours;
    int Calls = 0;  // that changed anything

  private:
    Size frame_;
    Size form_;
    std::vector<Area> areas_;
    std::int32_t left_ = 0;
    std::int32_t top_ = 0;
};

// fraStatus, and a form of 1024 x 768 pixels with 15 twips each.
constexpr RecordingFrame::Size kPanelSize{6165, 2745};
constexpr RecordingFrame::Size kFormSize{15360, 11520};

}  // namespace ambrio
