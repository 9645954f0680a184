#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/win32/windows/BackBuffer.h"
#include "saver/animation/AnimatedFrame.h"
#include "saver/panel/LastDigits.h"
#include "saver/panel/PanelControls.h"
#include "saver/panel/PanelFont.h"
#include "saver/panel/PanelTextLine.h"

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

    // Takes caption and colours from another one. Takes effect, as the next three do, with the next
    // DrawFrame.
    void LookLike(const PanelPainter& other);
    void SetCaption(const std::wstring& caption) { caption_ = caption; }
    void SetBackColor(Colour colour) { backColor_ = colour; }
    void SetLabelColours(const LabelColours& colours) { colours_ = colours; }
    [[nodiscard]] Colour BackColor() const { return backColor_; }
    // What the labels stand on.
    [[nodiscard]] Colour PlateColor() const { return colours_.Plate; }
    // The diameter of the circles that round the frame's corners, in pixels across and down.
    [[nodiscard]] SIZE Rounding() const;

    // Draws everything anew.
    void DrawFrame(const PanelTexts& texts);
    // Draws one label anew, where its text was and is, and whatever else reaches into that part of
    // the picture. Gives that part, in pixels.
    RECT DrawLabel(std::size_t label, const PanelTexts& texts);

    [[nodiscard]] const BackBuffer& Picture() const { return picture_; }

  private:
    // What the labels are written in, by what they are: a name or a path; what explains one; a
    // count, the status and the slogan, whose rows are narrow.
    enum class TextKind { Value, Caption, Count };

    [[nodiscard]] static TextKind KindOf(const PanelLabelDesign& design);
    [[nodiscard]] const PanelFont& FontOf(TextKind kind) const {
        return fonts_[static_cast<std::size_t>(kind)];
    }
    void SettleFonts(const PanelTexts& texts);
    [[nodiscard]] PanelFont MakeFont(int twips, int weight) const;
    [[nodiscard]] bool Fits(TextKind kind, const PanelTexts& texts) const;
    void SettleRows();
    void SettleReaches(const PanelTexts& texts);
    void DrawBackground();
    void DrawCaption(HDC dc);
    void DrawLabels(const RECT& area, const PanelTexts& texts);
    // The lines of a text as they are shown in a label.
    struct SplitText {
        std::wstring Text;
        std::vector<PanelTextLine> Lines;  // at least one, but for a text that was never asked for
    };
    // Kept until the label has another text.
    const std::vector<PanelTextLine>& LinesOf(std::size_t label, const std::wstring& text);
    [[nodiscard]] std::vector<PanelTextLine> Split(std::size_t label,
                                                   const std::wstring& text) const;
    [[nodiscard]] PanelTextLine LineOf(std::size_t label, const PanelFont& font, int top,
                                       const std::wstring& text) const;
    // The part of the picture that these lines can reach.
    [[nodiscard]] RECT PlaceOf(std::size_t label, const std::vector<PanelTextLine>& lines) const;
    // Where the last digit of a label is, with what it may reach of the one before; nothing where
    // its text is no count.
    [[nodiscard]] std::optional<RECT> LastDigitOf(std::size_t label,
                                                  const std::wstring& text) const;
    void Write(const PanelTextLine& line, Colour colour, const RECT& room);
    [[nodiscard]] RECT PlateIn(const RECT& frame) const;
    [[nodiscard]] RECT PixelsOf(const TwipsRect& place) const;
    [[nodiscard]] int Across(int twips) const;
    [[nodiscard]] int Down(int twips) const;

    double twipsPerPixelX_;
    double twipsPerPixelY_;
    BackBuffer background_;  // everything but the labels
    BackBuffer picture_;
    const wchar_t* face_;
    PanelFont captionFont_;
    std::array<PanelFont, 3> fonts_;  // by TextKind
    // One of them, in the picture: selecting it anew for each text would cost as much as writing.
    std::unique_ptr<SelectedObject> selection_;
    HFONT selected_ = nullptr;
    std::array<RECT, kPanelLabels.size()> reach_{};  // what a label's text can reach, in pixels
    std::array<RECT, kPanelLabels.size()> inked_{};  // where its text is now
    std::array<int, kPanelLabels.size()> baseline_{};
    std::array<std::wstring, kPanelLabels.size()> shown_;
    std::array<SplitText, kPanelLabels.size()> lines_;
    SplitText former_;  // of the label that is being drawn; keeps its room
    std::array<LastDigits, kPanelLabels.size()> lastDigits_;  // of the counts
    std::wstring caption_ = kPanelDesignTitle;
    Colour backColor_{24, 56, 112};
    LabelColours colours_{{255, 255, 255}, {200, 212, 232}, {14, 34, 70}};
};

}  // namespace ambrio
