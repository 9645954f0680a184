// How the panel writes its texts: rows, lines, and what is cut.

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <numeric>
#include <string>
#include <vector>

#include "tests/unit/PanelFixture.h"

namespace ambrio {
namespace {

// The rows of the picture in which something changes from column to column of a box.
struct Rows {
    LONG First = LONG_MAX;
    LONG Last = LONG_MIN;
};

Rows RowsWithText(const BackBuffer& picture, const RECT& box) {
    Rows rows;
    for (LONG y = box.top; y < box.bottom; ++y) {
        for (LONG x = box.left + 1; x < box.right; ++x) {
            if (GetPixel(picture.DC(), x, y) != GetPixel(picture.DC(), x - 1, y)) {
                rows = {std::min(rows.First, y), std::max(rows.Last, y)};
                break;
            }
        }
    }
    return rows;
}

struct Row {
    PanelControl Fixed;
    PanelControl Value;
};

constexpr Row kRows[] = {
    {PanelControl::zblFixed0, PanelControl::lblSet},
    {PanelControl::zblFixed1, PanelControl::lblSource},
    {PanelControl::zblFixed2, PanelControl::lblDest},
    {PanelControl::zblFixed3, PanelControl::lblFile},
    {PanelControl::zblFixed4, PanelControl::lblChecked},
    {PanelControl::zblFixed5, PanelControl::lblcopied},
    {PanelControl::Label2, PanelControl::lblRemoved},
};

TEST(PanelText, WritesAFixedTextAndItsValueOnOneLineAtEveryResolution) {
    for (const int dotsPerInch : {96, 120, 144, 168, 192}) {
        const Panel panel(dotsPerInch);
        panel.View->SetTitle(L"");  // its plate reaches into the first row's boxes
        for (const Row& row : kRows) {
            SCOPED_TRACE(testing::Message()
                         << static_cast<int>(row.Fixed) << " at " << dotsPerInch);
            for (const PanelControl control : {row.Fixed, row.Value}) {
                SendMessageW(panel.Control(control), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"H"));
            }
            const BackBuffer picture = panel.Picture();
            const RECT fixed = panel.Place(row.Fixed);
            const RECT value = panel.Place(row.Value);
            // Both with room above and below, as a text may begin a little above its window.
            const LONG top = std::min(fixed.top, value.top) - 2;
            const LONG bottom = top + (value.bottom - value.top) - 2;
            const Rows ofFixed = RowsWithText(picture, {fixed.left, top, value.left, bottom});
            const Rows ofValue = RowsWithText(picture, {value.left, top, value.right, bottom});
            EXPECT_LT(ofFixed.First, ofFixed.Last);
            EXPECT_LT(ofValue.First, ofValue.Last);
            EXPECT_EQ(ofFixed.Last, ofValue.Last) << "the line that letters stand on";
        }
    }
}

// To be read across a room: the height of a capital letter, in pixels of 96 dpi.
TEST(PanelText, IsAsLargeAsThePlacesAllow) {
    for (const int dotsPerInch : {96, 120, 144, 192}) {
        const Panel panel(dotsPerInch);
        panel.View->SetTitle(L"");
        for (const Row& row : kRows) {
            SCOPED_TRACE(testing::Message()
                         << static_cast<int>(row.Value) << " at " << dotsPerInch);
            SendMessageW(panel.Control(row.Value), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"H"));
            RECT value = panel.Place(row.Value);
            value.top -= 2;
            value.bottom = value.top + (value.bottom - value.top) * 3 / 4;
            const Rows letter = RowsWithText(panel.Picture(), value);
            const bool isPath = row.Value <= PanelControl::lblFile;
            const double height = (letter.Last - letter.First + 1) * 96.0 / dotsPerInch;
            EXPECT_GE(height, isPath ? 9.5 : 7.5);
            if (!isPath) {
                continue;
            }
            // Where the fixed text ends, its value can begin.
            SendMessageW(panel.Control(row.Value), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
            const RECT fixed = panel.Place(row.Fixed);
            const RECT between{panel.Place(row.Value).left - 1, fixed.top, value.right,
                               value.bottom};
            EXPECT_EQ(RowsWithText(panel.Picture(), between).First, LONG_MAX);
        }
    }
}

// The clip lies over the last of the four rows while it plays.
TEST(PanelText, KeepsTheNameOfTheFileClearOfTheClip) {
    for (const int dotsPerInch : {96, 120, 144, 192}) {
        const Panel panel(dotsPerInch);
        const RECT name = panel.Place(PanelControl::lblFile);
        const RECT clip = panel.Place(PanelControl::fraAni);
        panel.View->SetCaption(PanelLabel::lblFile, L"Hgjpq");
        const RECT around{name.left, name.top - 4, name.right, name.bottom};
        const Rows text = RowsWithText(panel.Picture(), around);
        EXPECT_LT(text.First, text.Last) << dotsPerInch;
        EXPECT_LT(text.Last, clip.top) << dotsPerInch;
    }
}

// The title stands right above the first row.
TEST(PanelText, KeepsTheFirstRowClearOfTheTitle) {
    for (const int dotsPerInch : {96, 120, 144, 192}) {
        const Panel panel(dotsPerInch);
        const RECT fixed = panel.Place(PanelControl::zblFixed0);
        const auto pictureWith = [&panel](const wchar_t* title) {
            panel.View->SetTitle(title);
            return panel.Picture();
        };
        const BackBuffer with = pictureWith(L"Ambrio v1.0");
        const BackBuffer without = pictureWith(L"");
        LONG lastOfTitle = 0;
        for (LONG y = 0; y < with.Height() / 2; ++y) {
            for (LONG x = 0; x < with.Width(); ++x) {
                const bool isTitle = GetPixel(with.DC(), x, y) != GetPixel(without.DC(), x, y);
                lastOfTitle = isTitle ? y : lastOfTitle;
            }
        }
        const Rows text =
            RowsWithText(without, {fixed.left, lastOfTitle + 1, fixed.right, fixed.bottom});
        EXPECT_GT(lastOfTitle, 5) << dotsPerInch;
        EXPECT_GE(text.First - lastOfTitle, 1 + dotsPerInch / 48) << dotsPerInch;
    }
}

constexpr const wchar_t* kTwoLines = L"<All sets processed><ERRORS reported>\r\nsee C:\\Ambrio.log";

// How many lines of text there are: rows with nothing between them part two of them.
int LinesIn(const BackBuffer& picture, const RECT& box) {
    int lines = 0;
    bool wasText = false;
    for (LONG y = box.top; y < box.bottom; ++y) {
        const Rows row = RowsWithText(picture, {box.left, y, box.right, y + 1});
        const bool isText = row.First == y;
        lines += isText && !wasText ? 1 : 0;
        wasText = isText;
    }
    return lines;
}

TEST(PanelText, ShowsTheLinesOfATextBelowEachOther) {
    for (const int dotsPerInch : {96, 120, 144, 192}) {
        SCOPED_TRACE(dotsPerInch);
        const Panel panel(dotsPerInch);
        const RECT box = panel.Place(PanelControl::lblSet);
        panel.View->SetCaption(PanelLabel::lblSet, L"see it");
        EXPECT_EQ(1, LinesIn(panel.Picture(), box));
        panel.View->SetCaption(PanelLabel::lblSet, L"see it\r\nsee it");
        EXPECT_EQ(2, LinesIn(panel.Picture(), box));
        panel.View->SetCaption(PanelLabel::lblSet, L"see it\nsee it\nsee it\nsee it");
        EXPECT_EQ(2, LinesIn(panel.Picture(), box)) << "no more than there is room for";
    }
}

// What a part of the panel shows.
std::vector<COLORREF> PixelsIn(const BackBuffer& picture, const RECT& box) {
    std::vector<COLORREF> pixels;
    for (LONG y = box.top; y < box.bottom; ++y) {
        for (LONG x = box.left; x < box.right; ++x) {
            pixels.push_back(GetPixel(picture.DC(), x, y));
        }
    }
    return pixels;
}

TEST(PanelText, ShortensEachLineByItself) {
    const Panel panel;
    RECT upper = panel.Place(PanelControl::lblSet);
    const auto pictureOf = [&panel](const std::wstring& caption) {
        panel.View->SetCaption(PanelLabel::lblSet, caption);
        return panel.Picture();
    };
    const std::wstring longLine(200, L'm');
    const Rows first = RowsWithText(pictureOf(L"see it\r\n"), upper);
    upper.top = first.First - 1;
    upper.bottom = first.Last + 1;
    const auto whole = PixelsIn(pictureOf(L"<All sets processed><ERRORS reported>\r\n"), upper);
    EXPECT_EQ(whole, PixelsIn(pictureOf(kTwoLines), upper)) << "no ellipsis where none is needed";
    EXPECT_EQ(whole,
              PixelsIn(pictureOf(L"<All sets processed><ERRORS reported>\r\n" + longLine), upper));
    EXPECT_EQ(PixelsIn(pictureOf(longLine + L"\r\n"), upper),
              PixelsIn(pictureOf(longLine + L"\r\nsee it"), upper));
    EXPECT_NE(whole, PixelsIn(pictureOf(longLine + L"\r\nsee it"), upper));
}

// What is kept of one digit must fit every number in which it is shown again.
TEST(PanelText, CountsAsItWouldWriteEachNumberAnew) {
    for (const int dotsPerInch : {96, 168}) {
        const Panel counting(dotsPerInch);
        const Panel writing(dotsPerInch);
        const RECT box = counting.Place(PanelControl::lblChecked);
        for (const int start : {0, 90, 1970, 19'990}) {
            std::vector<int> numbers(45);
            std::iota(numbers.begin(), numbers.end(), start);
            // Not beside each other, but with the same first digit.
            numbers.insert(numbers.end(), {1, 10, 1, 12345});
            for (const int i : numbers) {
                const std::wstring number = std::to_wstring(i);
                counting.View->SetCaption(PanelLabel::lblChecked, number);
                writing.View->SetCaption(PanelLabel::lblChecked, number);
                writing.View->Redraw();
                ASSERT_EQ(PixelsIn(counting.Picture(), box), PixelsIn(writing.Picture(), box))
                    << number << " at " << dotsPerInch;
            }
        }
    }
}

// Only what differs from the text before is written.
TEST(PanelText, WritesANameAsItWouldWriteItAnew) {
    const std::wstring deep = L"D:\\" + std::wstring(80, L'f') + L"\\";
    const std::wstring texts[] = {L"file1.txt",
                                  L"file12.txt",
                                  L"file12.txt - copying",
                                  L"file12",
                                  L"fjord \x00e9t\x00e9.txt",
                                  L"fjord \x00e9t\x00e9.doc",
                                  L"fjord ete.doc",
                                  deep + L"WAVE.txt",
                                  deep + L"WAVY.txt",
                                  L"D:\\" + std::wstring(81, L'f') + L"\\WAVY.txt",
                                  L"two\r\nlines",
                                  L"two\r\nlives",
                                  L"two",
                                  L"",
                                  L"AVAVAV",
                                  L"AVAVAW",
                                  L"fff",
                                  L"ffj",
                                  L"nee",
                                  L"nee\x0301",
                                  L"ab \x05d0\x05d1\x05d2",
                                  L"ab \x05d0\x05d1\x05d3",
                                  L"ab \x0623\x0644",
                                  L"ab \x0623\x0644\x0646",
                                  L"",
                                  L"",
                                  L""};
    struct Label {
        PanelLabel Name;
        PanelControl Control;
    };
    // Each gets the text that the one before it has just lost.
    constexpr Label kLabels[] = {{PanelLabel::lblFile, PanelControl::lblFile},
                                 {PanelLabel::lblSource, PanelControl::lblSource},
                                 {PanelLabel::lblSet, PanelControl::lblSet}};
    for (const int dotsPerInch : {96, 168}) {
        const Panel changing(dotsPerInch);
        const Panel writing(dotsPerInch);
        for (std::size_t i = std::size(kLabels); i < std::size(texts); ++i) {
            for (std::size_t label = 0; label < std::size(kLabels); ++label) {
                changing.View->SetCaption(kLabels[label].Name, texts[i - label]);
                writing.View->SetCaption(kLabels[label].Name, texts[i - label]);
            }
            writing.View->Redraw();
            for (const Label& label : kLabels) {
                const RECT box = changing.Place(label.Control);
                ASSERT_EQ(PixelsIn(changing.Picture(), box), PixelsIn(writing.Picture(), box))
                    << i << " at " << dotsPerInch;
            }
        }
    }
}

TEST(PanelText, ForgetsHowDigitsLookedInOtherColours) {
    const Panel panel;
    const RECT box = panel.Place(PanelControl::lblChecked);
    const auto count = [&panel] {
        for (int i = 100; i < 130; ++i) {
            panel.View->SetCaption(PanelLabel::lblChecked, std::to_wstring(i));
        }
    };
    count();
    panel.View->SetLabelColours({{255, 0, 0}, {0, 255, 0}, {0, 0, 255}});
    panel.View->Redraw();
    count();
    const auto counted = PixelsIn(panel.Picture(), box);
    panel.View->Redraw();
    EXPECT_EQ(counted, PixelsIn(panel.Picture(), box));
}

}  // namespace
}  // namespace ambrio
