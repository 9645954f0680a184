#pragma once

#include <string>

#include "app/preview/PreviewPicture.h"
#include "platform/Application.h"
#include "platform/win32/windows/BackBuffer.h"
#include "platform/win32/windows/Window.h"
#include "saver/animation/AnimatedFrame.h"

namespace ambrio {

// fraStatus of the preview: a small frame inside the picture whose caption is all that it shows.
class PreviewFrame : public Window, public AnimatedFrame {
  public:
    // In the middle of the picture, which is not owned. Becomes smaller than designed where the
    // picture leaves no room to move.
    PreviewFrame(PreviewPicture& picture, const Application& application);
    ~PreviewFrame() override;

    // Seen with the next Repaint.
    void SetCaption(const std::wstring& caption);
    // Shows a new caption or new colours at once, if there are any.
    void Repaint();

    [[nodiscard]] std::int32_t Left() const override { return left_; }
    [[nodiscard]] std::int32_t Top() const override { return top_; }
    [[nodiscard]] std::int32_t Width() const override { return size_.Width; }
    [[nodiscard]] std::int32_t Height() const override { return size_.Height; }
    [[nodiscard]] std::int32_t ParentScaleWidth() const override;
    [[nodiscard]] std::int32_t ParentScaleHeight() const override;
    void Move(std::int32_t left, std::int32_t top) override;
    void SetBackColor(Colour colour) override;
    void SetLabelColours(const LabelColours& colours) override;
    void DrawLines(std::span<const Line> lines, const Palette& palette) override {
        picture_.DrawLines(lines, palette);
    }

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void DrawPicture();
    void DrawCaption(const RECT& plate);
    [[nodiscard]] int Across(int twips) const;
    [[nodiscard]] int Down(int twips) const;

    PreviewPicture& picture_;
    const Application& application_;
    TwipsSize size_;
    std::int32_t left_;
    std::int32_t top_;
    std::wstring caption_ = L"Ambrio";
    Colour backColor_;
    LabelColours colours_{{255, 255, 255}, {}, {}};
    UniqueFont font_;
    BackBuffer buffer_;
    bool isStale_ = true;
};

}  // namespace ambrio
