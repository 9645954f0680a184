#include "saver/panel/PanelPainter.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/Twips.h"
#include "saver/SystemColour.h"
#include "saver/animation/Contrast.h"
#include "saver/model/Ellipsis.h"
#include "saver/model/PanelFace.h"

namespace ambrio {
namespace {

constexpr int kBorder = 45;     // twips, on all sides
constexpr int kRounding = 330;  // the diameter of the corners, twips
constexpr int kCaptionTop = 45;
constexpr int kCaptionLeft = 120;
constexpr int kGap = 45;      // between a fixed text and a count beside it, twips
constexpr int kSameRow = 15;  // how far apart a fixed text and its value may have been drawn, twips
constexpr int kTightestLine = 7;   // eighths of a line's height, where two share a box
constexpr int kBelowCaption = 30;  // from the frame's caption to the first row, twips
constexpr int kFirstNarrowRow = 1900;
constexpr int kNarrowRow = 240;  // from one of them to the next
constexpr int kWidestCount = 5;  // digits that stand beside any fixed text

// Heights of letters, in twips: 240 are twelve points.
constexpr int kValueHeight = 210;
constexpr int kLargest = 195;
constexpr int kTitleHeight = 180;
constexpr int kSmallest = 150;
constexpr int kFinest = 5;

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
      face_(PanelFace(
          [this](const wchar_t* name) { return PanelFont::IsThere(picture_.DC(), name); })),
      captionFont_(MakeFont(kTitleHeight, FW_BOLD)) {
    SetBkMode(background_.DC(), TRANSPARENT);
    SetBkMode(picture_.DC(), TRANSPARENT);
    SettleFonts(texts);
    SettleRows();
    SettleReaches(texts);
    selected_ = FontOf(TextKind::Value).Handle();
    selection_ = std::make_unique<SelectedObject>(picture_.DC(), selected_);
}

void PanelPainter::LookLike(const PanelPainter& other) {
    caption_ = other.caption_;
    backColor_ = other.backColor_;
    colours_ = other.colours_;
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

PanelPainter::TextKind PanelPainter::KindOf(const PanelLabelDesign& design) {
    if (design.Place.Top >= kFirstNarrowRow) {
        return TextKind::Count;
    }
    return design.IsFixed ? TextKind::Caption : TextKind::Value;
}

PanelFont PanelPainter::MakeFont(int twips, int weight) const {
    return {picture_.DC(), face_, Down(twips), weight};
}

// As large as the places allow.
void PanelPainter::SettleFonts(const PanelTexts& texts) {
    fonts_[static_cast<std::size_t>(TextKind::Value)] = MakeFont(kValueHeight, FW_NORMAL);
    for (const TextKind kind : {TextKind::Caption, TextKind::Count}) {
        int twips = kLargest;
        do {
            fonts_[static_cast<std::size_t>(kind)] = MakeFont(twips, FW_NORMAL);
            twips -= kFinest;
        } while (twips >= kSmallest && !Fits(kind, texts));
    }
}

// Whether each fixed text of a kind leaves room for what it explains.
bool PanelPainter::Fits(TextKind kind, const PanelTexts& texts) const {
    const PanelFont& font = FontOf(kind);
    if (kind == TextKind::Count && font.LineHeight() > Down(kNarrowRow)) {
        return false;
    }
    const LONG count = font.WidthOf(std::wstring(kWidestCount, L'8'));
    for (std::size_t i = 0; i < kPanelLabels.size(); ++i) {
        const std::size_t row = RowOf(i);
        if (row == i || KindOf(kPanelLabels[row]) != kind) {
            continue;
        }
        const RECT value = PixelsOf(kPanelLabels[i].Place);
        const LONG right = kind == TextKind::Count ? value.right - count : value.left;
        const LONG end =
            PixelsOf(kPanelLabels[row].Place).left + font.WidthOf(*texts[row]) + Across(kGap);
        if (end > right) {
            return false;
        }
    }
    return true;
}

// A fixed text and what it explains stand on one line, whichever pixels their boxes begin at and
// however large they are. The first row keeps clear of the frame's caption, the last of the clip.
void PanelPainter::SettleRows() {
    const int first = Down(kCaptionTop) + captionFont_.LineHeight() + Down(kBelowCaption);
    for (std::size_t i = 0; i < kPanelLabels.size(); ++i) {
        const PanelLabelDesign& row = kPanelLabels[RowOf(i)];
        const bool isNarrow = KindOf(row) == TextKind::Count;
        const PanelFont& tallest = FontOf(isNarrow ? TextKind::Count : TextKind::Value);
        baseline_[i] = std::max(Down(row.Place.Top), first) + tallest.Ascent();
        if (row.Place.Top < kCopyFramePlace.Top) {
            const int below = tallest.LineHeight() - tallest.Ascent();
            baseline_[i] = std::min(baseline_[i], Down(kCopyFramePlace.Top) - below);
        }
    }
}

// A fixed text is shown whole, also where it is wider than its box; a count may also use the room
// that the fixed text on its left leaves.
void PanelPainter::SettleReaches(const PanelTexts& texts) {
    for (std::size_t i = 0; i < kPanelLabels.size(); ++i) {
        const PanelLabelDesign& design = kPanelLabels[i];
        const PanelFont& font = FontOf(KindOf(design));
        const LONG top = baseline_[i] - font.Ascent();
        reach_[i] = PixelsOf(design.Place);
        reach_[i].top = std::min(reach_[i].top, top);
        reach_[i].bottom = std::max(reach_[i].bottom, top + font.LineHeight());
        if (design.IsFixed && design.Alignment == TextAlignment::Left) {
            reach_[i].right = std::max(reach_[i].right, reach_[i].left + font.WidthOf(*texts[i]));
        }
        if (design.IsFixed || design.Alignment != TextAlignment::Right) {
            continue;
        }
        if (const std::size_t row = RowOf(i); row != i) {
            reach_[i].left =
                PixelsOf(kPanelLabels[row].Place).left + font.WidthOf(*texts[row]) + Across(kGap);
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
    std::swap(former_, lines_[label]);
    lines_[label].Lines.clear();  // these were another label's
    const std::vector<PanelTextLine>& lines = LinesOf(label, text);
    const RECT place = PlaceOf(label, lines);
    RECT changed = inked_[label];
    UnionRect(&changed, &changed, &place);
    inked_[label] = changed;
    // Most names begin as the last one did, most paths with the same folders.
    if (former_.Text == shown_[label] && former_.Lines.size() == 1 && lines.size() == 1) {
        const LONG from = FirstDifference(former_.Lines.front(), lines.front());
        changed.left = std::clamp(from, changed.left, changed.right);
    }
    DrawLabels(changed, texts);
    if (lastDigit) {
        lastDigits_[label].Keep(picture_.DC(), *lastDigit, *(text.end() - 2), text.back());
    }
    return changed;
}

std::optional<RECT> PanelPainter::LastDigitOf(std::size_t label, const std::wstring& text) const {
    const PanelFont& font = FontOf(KindOf(kPanelLabels[label]));
    if (kPanelLabels[label].Alignment != TextAlignment::Right || text.size() < 2 ||
        !std::all_of(text.begin(), text.end(), IsDigit) || !font.AddsWidthsUp()) {
        return std::nullopt;
    }
    const RECT& reach = reach_[label];
    const LONG top = baseline_[label] - font.Ascent();
    const int width = font.WidthOf(text.substr(text.size() - 1));
    if (font.WidthOf(text) > reach.right - reach.left) {
        return std::nullopt;
    }
    return RECT{reach.right - width - OverhangOf(font), top, reach.right, top + font.LineHeight()};
}

SIZE PanelPainter::Rounding() const {
    return {Across(kRounding), Down(kRounding)};
}

// As wide on each side, whatever parts of pixels the border has across and down.
RECT PanelPainter::PlateIn(const RECT& frame) const {
    RECT plate = frame;
    InflateRect(&plate, -Across(kBorder), -Across(kBorder));
    return plate;
}

// The frame's own rounding is that of the window; the plate's runs beside it.
void PanelPainter::DrawBackground() {
    const HDC dc = background_.DC();
    const Colour border = BorderColourOn(backColor_, colours_.Plate);
    const UniqueBrush frame(CreateSolidBrush(SystemColour(border)));
    const UniqueBrush plate(CreateSolidBrush(SystemColour(colours_.Plate)));
    const UniquePen edge(CreatePen(PS_SOLID, 1, SystemColour(colours_.Plate)));
    const RECT all{0, 0, background_.Width(), background_.Height()};
    FillRect(dc, &all, frame.get());
    const SelectedObject pen(dc, edge.get());
    const SelectedObject brush(dc, plate.get());
    const RECT inner = PlateIn(all);
    const auto [across, down] = Rounding();
    RoundRect(dc, inner.left, inner.top, inner.right, inner.bottom, across - 2 * Across(kBorder),
              down - 2 * Across(kBorder));
    DrawCaption(dc);
}

void PanelPainter::DrawCaption(HDC dc) {
    const SelectedObject font(dc, captionFont_.Handle());
    const int left = Across(kCaptionLeft);
    const int room = background_.Width() - 2 * left;
    const std::wstring text = Shortened(caption_, [this, room](const std::wstring& candidate) {
        return captionFont_.WidthOf(candidate) <= room;
    });
    SetTextColor(dc, SystemColour(colours_.Text));
    ExtTextOutW(dc, left, Down(kCaptionTop), 0, nullptr, text.c_str(),
                static_cast<UINT>(text.size()), nullptr);
}

void PanelPainter::Write(const PanelTextLine& line, Colour colour, const RECT& room) {
    if (selected_ != line.Font->Handle()) {
        selected_ = line.Font->Handle();
        SelectObject(picture_.DC(), selected_);
    }
    SetTextColor(picture_.DC(), SystemColour(colour));
    WriteLine(picture_.DC(), line, room);
}

void PanelPainter::DrawLabels(const RECT& area, const PanelTexts& texts) {
    background_.CopyTo(picture_.DC(), area.left, area.top, area);
    for (std::size_t i = 0; i < kPanelLabels.size(); ++i) {
        if (!Touch(area, inked_[i])) {
            continue;
        }
        const std::vector<PanelTextLine>& lines = LinesOf(i, *texts[i]);
        const Colour colour = kPanelLabels[i].IsFixed ? colours_.Caption : colours_.Text;
        RECT room = reach_[i];
        IntersectRect(&room, &room, &area);
        for (const PanelTextLine& line : lines) {
            Write(line, colour, room);
        }
        inked_[i] = PlaceOf(i, lines);
        shown_[i] = *texts[i];
    }
}

const std::vector<PanelTextLine>& PanelPainter::LinesOf(std::size_t label,
                                                        const std::wstring& text) {
    SplitText& shown = lines_[label];
    if (shown.Lines.empty() || shown.Text != text) {
        shown.Lines = Split(label, text);
        shown.Text = text;
    }
    return shown.Lines;
}

// Each line of a text is shortened by itself. Several are written smaller; they move together where
// the box is low, and those that it has no room for even so are left out.
std::vector<PanelTextLine> PanelPainter::Split(std::size_t label, const std::wstring& text) const {
    if (text.find(L'\n') == std::wstring::npos) {
        const PanelFont& font = FontOf(KindOf(kPanelLabels[label]));
        return {LineOf(label, font, baseline_[label] - font.Ascent(), text)};
    }
    const PanelFont& font = FontOf(TextKind::Count);
    const std::vector<std::wstring> texts = SplitLines(text);
    const int room = reach_[label].bottom - reach_[label].top;
    const int most = std::max(1, room / std::max(font.LineHeight() * kTightestLine / 8, 1));
    const int count = std::min(static_cast<int>(texts.size()), most);
    const int pitch = std::min(font.LineHeight(), room / count);
    std::vector<PanelTextLine> lines;
    for (int line = 0; line < count; ++line) {
        lines.push_back(LineOf(label, font, reach_[label].top + line * pitch,
                               texts[static_cast<std::size_t>(line)]));
    }
    return lines;
}

PanelTextLine PanelPainter::LineOf(std::size_t label, const PanelFont& font, int top,
                                   const std::wstring& text) const {
    const RECT& reach = reach_[label];
    const int room = reach.right - reach.left;
    PanelTextLine line;
    line.Text = Shortened(text, [&font, room](const std::wstring& candidate) {
        return font.WidthOf(candidate) <= room;
    });
    line.Font = &font;
    line.Top = top;
    line.Left = reach.left;
    line.Width = font.WidthOf(line.Text);
    const TextAlignment alignment = kPanelLabels[label].Alignment;
    if (alignment != TextAlignment::Left) {
        const int spare = room - line.Width;
        line.Left += alignment == TextAlignment::Right ? spare : spare / 2;
    }
    return line;
}

RECT PanelPainter::PlaceOf(std::size_t label, const std::vector<PanelTextLine>& lines) const {
    RECT place{};
    for (const PanelTextLine& line : lines) {
        const RECT box = ReachOf(line);
        if (!line.Text.empty()) {
            UnionRect(&place, &place, &box);
        }
    }
    IntersectRect(&place, &place, &reach_[label]);
    return place;
}

}  // namespace ambrio
