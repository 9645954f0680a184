#pragma once

#include <array>
#include <string>

#include "platform/win32/windows/BackBuffer.h"
#include "saver/animation/AnimatedFrame.h"
#include "saver/panel/PanelControls.h"

namespace ambrio {

// The present texts of the labels, in the order of kPanelLabels; not owned.
using PanelTexts = std::array<const std::wstring*, kPanelLabels.size()>;

// The pixels that a place in twips covers, at so many screen twips per pixel across and down.
[[nodiscard]] RECT PixelsOfTwips(const TwipsRect& place, double twipsPerPixelX,
                                 double twipsPerPixelY);

// Draws the panel into a picture in memory. Without memory for that picture nothing is drawn.
class PanelPainter {
  public:
    // Screen twips per pixel, across and down. The fixed texts settle how much room the labels
    // beside them have.
    PanelPainter(double twipsPerPixelX, double twipsPerPixelY, const PanelTexts& texts);

    // The part of the picture that a label's text can reach, in pixels.
    [[nodiscard]] const RECT& ReachOf(std::size_t label) const { return reach_[label]; }

    // These three take effect with the next DrawFrame.
    void SetCaption(const std::wstring& caption) { caption_ = caption; }
    void SetBackColor(Colour colour) { backColor_ = colour; }
    void SetLabelColours(const LabelColours& colours) { colours_ = colours; }
    [[nodiscard]] Colour BackColor() const { return backColor_; }

    // Draws everything anew.
    void DrawFrame(const PanelTexts& texts);
    // Draws one label anew, and whatever else reaches into its part of the picture.
    void DrawLabel(std::size_t label, const PanelTexts& texts);

    [[nodiscard]] const BackBuffer& Picture() const { return picture_; }

  private:
    void SettleRows();
    void SettleReaches(const PanelTexts& texts);
    void DrawBackground();
    void DrawCaption(HDC dc);
    void DrawLabels(const RECT& area, const PanelTexts& texts);
    void DrawText(std::size_t label, const std::wstring& text);
    void DrawLine(std::size_t label, int top, const std::wstring& text);
    // Of the frame's caption, when the device context has its font.
    [[nodiscard]] static int CaptionHeight(HDC dc);
    [[nodiscard]] RECT PixelsOf(const TwipsRect& place) const;
    [[nodiscard]] int Across(int twips) const;
    [[nodiscard]] int Down(int twips) const;

    double twipsPerPixelX_;
    double twipsPerPixelY_;
    BackBuffer background_;  // everything but the labels
    BackBuffer picture_;
    UniqueFont font_;
    UniqueFont captionFont_;
    std::array<RECT, kPanelLabels.size()> reach_{};
    std::array<int, kPanelLabels.size()> textTop_{};
    int lineHeight_ = 0;
    std::wstring caption_ = kPanelDesignTitle;
    Colour backColor_{24, 56, 112};
    LabelColours colours_{{255, 255, 255}, {200, 212, 232}, {14, 34, 70}};
};

}  // namespace ambrio
