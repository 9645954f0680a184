#include "saver/panel/PanelPainter.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "platform/Twips.h"
#include "saver/SystemColour.h"
#include "saver/model/Ellipsis.h"

namespace ambrio {
namespace {

constexpr int kTextHeight = 160;  // twips: eight points
constexpr int kMargin = 45;       // of the plate inside the frame, twips
constexpr int kCorner = 90;       // the plate's rounding, twips
constexpr int kCaptionLeft = 120;
constexpr int kGap = 45;      // between a fixed text and a count beside it, twips
constexpr int kSameRow = 15;  // how far apart a fixed text and its value may have been drawn, twips
constexpr int kTightestLine = 7;  // eighths of a line's height, where two share a box
constexpr int kOverhangs = 4;     // how many times a glyph's part beside its room goes into a line
constexpr wchar_t kFirstPlain = L' ';
constexpr wchar_t kLastPlain = L'~';
constexpr int kBelowCaption = 30;  // from the frame's caption to the first row, twips

Colour Between(Colour a, Colour b) {
    const auto half = [](std::uint8_t x, std::uint8_t y) {
        return static_cast<std::uint8_t>((x + y) / 2);
    };
    return {half(a.Red, b.Red), half(a.Green, b.Green), half(a.Blue, b.Blue)};
}

UniqueFont MakeFont(const wchar_t* face, int pixels, int weight) {
    return UniqueFont(CreateFontW(-pixels, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                  OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                                  VARIABLE_PITCH | FF_SWISS, face));
}

// The layout was drawn for the first of these faces; the others are as narrow. A system without
// any of them chooses by itself.
UniqueFont MakePanelFont(HDC dc, int pixels, int weight) {
    for (const wchar_t* face : {L"Tahoma", L"DejaVu Sans Condensed", L"Arial"}) {
        UniqueFont font = MakeFont(face, pixels, weight);
        const SelectedObject selected(dc, font.get());
        wchar_t chosen[LF_FACESIZE];
        GetTextFaceW(dc, LF_FACESIZE, chosen);
        if (std::wstring_view(chosen) == face) {
            return font;
        }
    }
    return MakeFont(L"Tahoma", pixels, weight);
}

SIZE Extent(HDC dc, const std::wstring& text) {
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    return size;
}

// Nothing outside the room, where one is given.
void WriteText(HDC dc, int left, int top, Colour colour, const std::wstring& text,
               const RECT* room = nullptr) {
    SetTextColor(dc, SystemColour(colour));
    ExtTextOutW(dc, left, top, room == nullptr ? 0 : ETO_CLIPPED, room, text.c_str(),
                static_cast<UINT>(text.size()), nullptr);
}

// The fixed text that stands before this label in its row; the label itself where there is none.
std::size_t RowOf(std::size_t label) {
    const TwipsRect& place = kPanelLabels[label].Place;
    for (std::size_t other = 0; other < kPanelLabels.size(); ++other) {
        const TwipsRect& box = kPanelLabels[other].Place;
        if (kPanelLabels[other].IsFixed && box.Left < place.Left &&
            std::abs(box.Top - place.Top) <= kSameRow) {
            return other;
        }
    }
    return label;
}

std::vector<std::wstring> SplitLines(const std::wstring& text) {
    std::vector<std::wstring> lines;
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::wstring::npos; start = end + 1) {
        end = text.find(L'\n', start);
        lines.push_back(text.substr(start, end - start));
        if (!lines.back().empty() && lines.back().back() == L'\r') {
            lines.back().pop_back();
        }
    }
    return lines;
}

bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

bool IsAllButLastEqual(const std::wstring& one, const std::wstring& other) {
    return one.size() == other.size() &&
           one.compare(0, one.size() - 1, other, 0, one.size() - 1) == 0;
}

bool Touch(const RECT& a, const RECT& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

}  // namespace

RECT PixelsOfTwips(const TwipsRect& place, double twipsPerPixelX, double twipsPerPixelY) {
    return {PixelsFromTwips(place.Left, twipsPerPixelX), PixelsFromTwips(place.Top, twipsPerPixelY),
            PixelsFromTwips(place.Left + place.Width, twipsPerPixelX),
            PixelsFromTwips(place.Top + place.Height, twipsPerPixelY)};
}

PanelPainter::PanelPainter(double twipsPerPixelX, double twipsPerPixelY, const PanelTexts& texts)
    : twipsPerPixelX_(twipsPerPixelX),
      twipsPerPixelY_(twipsPerPixelY),
      background_(Across(kStatusFramePlace.Width), Down(kStatusFramePlace.Height)),
      picture_(background_.Width(), background_.Height()),
      font_(MakePanelFont(picture_.DC(), Down(kTextHeight), FW_NORMAL)),
      captionFont_(MakePanelFont(picture_.DC(), Down(kTextHeight), FW_BOLD)) {
    SetBkMode(background_.DC(), TRANSPARENT);
    SetBkMode(picture_.DC(), TRANSPARENT);
    SettleRows();
    SettleReaches(texts);
    selectedFont_ = std::make_unique<SelectedObject>(picture_.DC(), font_.get());
    SettleWidths();
}

int PanelPainter::Across(int twips) const {
    return PixelsFromTwips(twips, twipsPerPixelX_);
}
int PanelPainter::Down(int twips) const {
    return PixelsFromTwips(twips, twipsPerPixelY_);
}

RECT PanelPainter::PixelsOf(const TwipsRect& place) const {
    return PixelsOfTwips(place, twipsPerPixelX_, twipsPerPixelY_);
}

// A fixed text and what it explains stand on one line, whichever pixels their boxes begin at. The
// first row keeps clear of the frame's caption.
void PanelPainter::SettleRows() {
    const SelectedObject captionFont(picture_.DC(), captionFont_.get());
    const int first = CaptionHeight(picture_.DC()) + Down(kBelowCaption);
    for (std::size_t i = 0; i < kPanelLabels.size(); ++i) {
        textTop_[i] = std::max(Down(kPanelLabels[RowOf(i)].Place.Top), first);
    }
    const SelectedObject font(picture_.DC(), font_.get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(picture_.DC(), &metrics);
    lineHeight_ = metrics.tmHeight;
}

// A fixed text is shown whole, also where it is wider than its box; a count may also use the room
// that the fixed text on its left leaves.
void PanelPainter::SettleReaches(const PanelTexts& texts) {
    const SelectedObject font(picture_.DC(), font_.get());
    for (std::size_t i = 0; i < kPanelLabels.size(); ++i) {
        const PanelLabelDesign& design = kPanelLabels[i];
        reach_[i] = PixelsOf(design.Place);
        reach_[i].top = std::min<LONG>(reach_[i].top, textTop_[i]);
        reach_[i].bottom = std::max<LONG>(reach_[i].bottom, textTop_[i] + lineHeight_);
        const LONG width = Extent(picture_.DC(), *texts[i]).cx;
        if (design.IsFixed && design.Alignment == TextAlignment::Left) {
            reach_[i].right = std::max(reach_[i].right, reach_[i].left + width);
        }
        if (design.IsFixed || design.Alignment != TextAlignment::Right) {
            continue;
        }
        if (const std::size_t row = RowOf(i); row != i) {
            reach_[i].left = PixelsOf(kPanelLabels[row].Place).left +
                             Extent(picture_.DC(), *texts[row]).cx + Across(kGap);
        }
    }
}

void PanelPainter::DrawFrame(const PanelTexts& texts) {
    DrawBackground();
    for (std::size_t i = 0; i < kPanelLabels.size(); ++i) {
        inked_[i] = reach_[i];
        lastDigits_[i].Forget();
    }
    DrawLabels({0, 0, picture_.Width(), picture_.Height()}, texts);
}

RECT PanelPainter::DrawLabel(std::size_t label, const PanelTexts& texts) {
    const std::wstring& text = *texts[label];
    const std::optional<RECT> lastDigit = LastDigitOf(label, text);
    if (lastDigit && IsAllButLastEqual(text, shown_[label]) &&
        lastDigits_[label].Show(picture_.DC(), *lastDigit, *(text.end() - 2), text.back())) {
        shown_[label] = text;
        return *lastDigit;
    }
    const RECT place = PlaceOf(label, LinesOf(label, text));
    RECT changed = inked_[label];
    UnionRect(&changed, &changed, &place);
    inked_[label] = changed;
    DrawLabels(changed, texts);
    if (lastDigit) {
        lastDigits_[label].Keep(picture_.DC(), *lastDigit, *(text.end() - 2), text.back());
    }
    return changed;
}

std::optional<RECT> PanelPainter::LastDigitOf(std::size_t label, const std::wstring& text) const {
    if (kPanelLabels[label].Alignment != TextAlignment::Right || text.size() < 2 ||
        !std::all_of(text.begin(), text.end(), IsDigit) || plainWidths_.empty()) {
        return std::nullopt;
    }
    const RECT& reach = reach_[label];
    const int top = textTop_[label];
    const int width = WidthOf(text.substr(text.size() - 1));
    if (WidthOf(text) > reach.right - reach.left) {
        return std::nullopt;
    }
    return RECT{reach.right - width - lineHeight_ / kOverhangs, top, reach.right,
                top + lineHeight_};
}

void PanelPainter::DrawBackground() {
    const HDC dc = background_.DC();
    const UniqueBrush frame(CreateSolidBrush(SystemColour(backColor_)));
    const UniqueBrush plate(CreateSolidBrush(SystemColour(colours_.Plate)));
    const UniquePen border(CreatePen(PS_SOLID, std::max(1, Across(15)),
                                     SystemColour(Between(backColor_, colours_.Caption))));
    const RECT all{0, 0, background_.Width(), background_.Height()};
    FillRect(dc, &all, frame.get());
    const SelectedObject pen(dc, border.get());
    const SelectedObject brush(dc, plate.get());
    RoundRect(dc, Across(kMargin), Down(kTextHeight) * 2 / 3, all.right - Across(kMargin),
              all.bottom - Down(kMargin) / 2, Across(kCorner), Down(kCorner));
    DrawCaption(dc);
}

int PanelPainter::CaptionHeight(HDC dc) {
    return Extent(dc, L"X").cy + 2;
}

// The caption stands in the border, as on a group box.
void PanelPainter::DrawCaption(HDC dc) {
    const SelectedObject font(dc, captionFont_.get());
    const int padding = Across(kCorner);
    const RECT room{0, 0, background_.Width() - 2 * Across(kCaptionLeft) - 2 * padding, 0};
    const std::wstring text = Shortened(caption_, [dc, &room](const std::wstring& candidate) {
        return Extent(dc, candidate).cx <= room.right;
    });
    if (text.empty()) {
        return;
    }
    const SIZE size = Extent(dc, text);
    const int left = Across(kCaptionLeft);
    RoundRect(dc, left, 0, left + size.cx + 2 * padding, CaptionHeight(dc), Across(kCorner),
              Down(kCorner));
    WriteText(dc, left + padding, 1, colours_.Text, text);
}

void PanelPainter::DrawLabels(const RECT& area, const PanelTexts& texts) {
    background_.CopyTo(picture_.DC(), area.left, area.top, area);
    for (std::size_t i = 0; i < kPanelLabels.size(); ++i) {
        if (!Touch(area, inked_[i])) {
            continue;
        }
        const std::vector<TextLine> lines = LinesOf(i, *texts[i]);
        const Colour colour = kPanelLabels[i].IsFixed ? colours_.Caption : colours_.Text;
        RECT room = reach_[i];
        IntersectRect(&room, &room, &area);
        for (const TextLine& line : lines) {
            WriteText(picture_.DC(), line.Left, line.Top, colour, line.Text, &room);
        }
        inked_[i] = PlaceOf(i, lines);
        shown_[i] = *texts[i];
    }
}

// Each line of a text is shortened by itself. Lines move together where the box is low, and those
// that it has no room for even so are left out.
std::vector<PanelPainter::TextLine> PanelPainter::LinesOf(std::size_t label,
                                                          const std::wstring& text) const {
    if (text.find(L'\n') == std::wstring::npos) {
        return {LineOf(label, textTop_[label], text)};
    }
    const std::vector<std::wstring> texts = SplitLines(text);
    const int room = reach_[label].bottom - textTop_[label];
    const int most = std::max(1, room / std::max(lineHeight_ * kTightestLine / 8, 1));
    const int count = std::min(static_cast<int>(texts.size()), most);
    const int pitch = std::min(lineHeight_, room / count);
    std::vector<TextLine> lines;
    for (int line = 0; line < count; ++line) {
        lines.push_back(
            LineOf(label, textTop_[label] + line * pitch, texts[static_cast<std::size_t>(line)]));
    }
    return lines;
}

PanelPainter::TextLine PanelPainter::LineOf(std::size_t label, int top,
                                            const std::wstring& text) const {
    const RECT& reach = reach_[label];
    const int room = reach.right - reach.left;
    TextLine line;
    line.Text = Shortened(
        text, [this, room](const std::wstring& candidate) { return WidthOf(candidate) <= room; });
    line.Top = top;
    line.Left = reach.left;
    line.Width = WidthOf(line.Text);
    const TextAlignment alignment = kPanelLabels[label].Alignment;
    if (alignment != TextAlignment::Left) {
        const int spare = room - line.Width;
        line.Left += alignment == TextAlignment::Right ? spare : spare / 2;
    }
    return line;
}

RECT PanelPainter::PlaceOf(std::size_t label, const std::vector<TextLine>& lines) const {
    const int overhang = lineHeight_ / kOverhangs;
    RECT place{};
    for (const TextLine& line : lines) {
        const RECT box{line.Left - overhang, line.Top, line.Left + line.Width + overhang,
                       line.Top + lineHeight_};
        if (!line.Text.empty()) {
            UnionRect(&place, &place, &box);
        }
    }
    IntersectRect(&place, &place, &reach_[label]);
    return place;
}

void PanelPainter::SettleWidths() {
    plainWidths_.resize(kLastPlain - kFirstPlain + 1);
    if (GetCharWidth32W(picture_.DC(), kFirstPlain, kLastPlain, plainWidths_.data()) == FALSE) {
        plainWidths_.clear();
    }
}

// Plain characters stand beside each other without regard to what they are, so that their widths
// add up; the system is asked for all else.
int PanelPainter::WidthOf(const std::wstring& text) const {
    int width = 0;
    for (const wchar_t unit : text) {
        const auto place = static_cast<std::size_t>(unit - kFirstPlain);
        if (unit < kFirstPlain || place >= plainWidths_.size()) {
            return Extent(picture_.DC(), text).cx;
        }
        width += plainWidths_[place];
    }
    return width;
}

}  // namespace ambrio
