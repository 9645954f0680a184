#include "saver/animation/StringFigures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "saver/animation/LightBuffer.h"
#include "saver/animation/LineSet.h"
#include "tests/support/RecordingFrame.h"

namespace ambrio {
namespace {

constexpr Palette kPalette{{255, 36, 120}, {36, 160, 255}};

// A usual screen, and other shapes.
constexpr RecordingFrame::Size kWide{28800, 16200};
constexpr RecordingFrame::Size kUpright{16200, 28800};
constexpr RecordingFrame::Size kTwoMonitors{57600, 16200};

std::uint32_t Brightest(std::uint32_t pixel) {
    // Not of a list: it is asked for so many pixels that a sanitizer makes the list dear.
    return std::max(std::max(pixel >> 16U, (pixel >> 8U) & 0xFFU), pixel & 0xFFU);
}
bool IsLit(std::uint32_t pixel) {
    return Brightest(pixel) > 24;
}

// What the figures look like, at so many twips per pixel.
class Screen {
  public:
    Screen(RecordingFrame::Size form, int twips)
        : Width(form.Width / twips),
          Height(form.Height / twips),
          Pixels(static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height)),
          buffer_(Width, Height, Pixels.data(), LineSet::Thickness(twips)),
          lines_(twips, twips) {
        buffer_.SetPalette(kPalette);
    }
    void Show(const StringFigures& figures) { lines_.Show(figures.Lines(), buffer_); }

    // The share of the pixels that are lit, in a part of the screen that is a share of it too.
    [[nodiscard]] double Lit(double left = 0, double top = 0, double right = 1,
                             double bottom = 1) const {
        int lit = 0;
        int all = 0;
        for (int y = static_cast<int>(top * Height); y < static_cast<int>(bottom * Height); ++y) {
            for (int x = static_cast<int>(left * Width); x < static_cast<int>(right * Width); ++x) {
                lit += IsLit(At(x, y)) ? 1 : 0;
                ++all;
            }
        }
        return 1.0 * lit / all;
    }
    [[nodiscard]] std::uint32_t At(int x, int y) const {
        return Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) +
                      static_cast<std::size_t>(x)];
    }

    int Width;
    int Height;
    std::vector<std::uint32_t> Pixels;

  private:
    LightBuffer buffer_;
    LineSet lines_;
};

// Figures of a seed with the numbers that they draw.
struct Figures {
    Figures(std::uint32_t seed, RecordingFrame::Size form)
        : Numbers(seed), Drawn(form.Width, form.Height, Numbers) {}
    void Step(int steps) {
        for (int i = 0; i < steps; ++i) {
            Drawn.Step(1);
        }
    }
    Random Numbers;
    StringFigures Drawn;
};

TEST(StringFigures, AreNeverAnEmptyScreenNorNoiseNorAFlatFill) {
    for (std::uint32_t seed = 1; seed <= 4; ++seed) {
        Figures figures(seed, kFormSize);
        Screen screen(kFormSize, 15);
        for (int step = 500; step <= 3000; step += 500) {
            figures.Step(500);
            screen.Show(figures.Drawn);
            double brightness = 0;
            for (const std::uint32_t pixel : screen.Pixels) {
                brightness += Brightest(pixel) / 255.0;
            }
            brightness /= static_cast<double>(screen.Pixels.size());
            EXPECT_GT(screen.Lit(), 0.08) << "seed " << seed << ", step " << step;
            EXPECT_LT(screen.Lit(), 0.60) << "seed " << seed << ", step " << step;
            EXPECT_LT(brightness, 0.25) << "seed " << seed << ", step " << step;
        }
    }
}

// The first look decides.
TEST(StringFigures, AreHalfWovenWhenTheyAreFirstSeen) {
    for (std::uint32_t seed = 1; seed <= 10; ++seed) {
        for (const RecordingFrame::Size form : {kFormSize, kWide, kUpright, kTwoMonitors}) {
            const Figures figures(seed, form);
            Screen screen(form, 30);
            screen.Show(figures.Drawn);
            EXPECT_GT(screen.Lit(), 0.10) << seed << ", " << form.Width;
        }
    }
}

// How far the ends of all strings reach, in shares of the form.
struct Reach {
    double Left = 1, Top = 1, Right = 0, Bottom = 0;
};

Reach ReachOf(const StringFigures& figures, RecordingFrame::Size form) {
    const double width = form.Width;
    const double height = form.Height;
    Reach reach;
    for (const Line& line : figures.Lines()) {
        reach.Left = std::min({reach.Left, line.FromX / width, line.ToX / width});
        reach.Right = std::max({reach.Right, line.FromX / width, line.ToX / width});
        reach.Top = std::min({reach.Top, line.FromY / height, line.ToY / height});
        reach.Bottom = std::max({reach.Bottom, line.FromY / height, line.ToY / height});
    }
    return reach;
}

TEST(StringFigures, ReachOverMostOfAWideScreenAtAnyTimeAndAreNeverClipped) {
    for (std::uint32_t seed = 1; seed <= 6; ++seed) {
        Figures figures(seed, kWide);
        double across = 0;
        double down = 0;
        for (int second = 0; second < 300; ++second) {
            const Reach reach = ReachOf(figures.Drawn, kWide);
            ASSERT_GE(reach.Left, 0) << seed << ", " << second;
            ASSERT_GE(reach.Top, 0) << seed << ", " << second;
            ASSERT_LE(reach.Right, 1) << seed << ", " << second;
            ASSERT_LE(reach.Bottom, 1) << seed << ", " << second;
            EXPECT_GE(reach.Right - reach.Left, 0.60) << seed << ", " << second;
            EXPECT_GE(reach.Bottom - reach.Top, 0.60) << seed << ", " << second;
            across += (reach.Right - reach.Left) / 300;
            down += (reach.Bottom - reach.Top) / 300;
            figures.Step(10);
        }
        EXPECT_GE(across, 0.85) << seed;
        EXPECT_GE(down, 0.85) << seed;
    }
}

// Each twelfth of the screen has its share of the light within two minutes.
TEST(StringFigures, UseTheWholeScreenWhateverItsShape) {
    constexpr int kColumns = 4;
    constexpr int kRows = 3;
    for (const RecordingFrame::Size form : {kFormSize, kWide, kUpright, kTwoMonitors}) {
        Figures figures(9, form);
        Screen screen(form, 60);
        double lit[kColumns][kRows] = {};
        for (int second = 0; second < 120; ++second) {
            figures.Step(10);
            screen.Show(figures.Drawn);
            for (int column = 0; column < kColumns; ++column) {
                for (int row = 0; row < kRows; ++row) {
                    lit[column][row] +=
                        screen.Lit(1.0 * column / kColumns, 1.0 * row / kRows,
                                   1.0 * (column + 1) / kColumns, 1.0 * (row + 1) / kRows);
                }
            }
        }
        for (int column = 0; column < kColumns; ++column) {
            for (int row = 0; row < kRows; ++row) {
                EXPECT_GT(lit[column][row] / 120, 0.04)
                    << form.Width << ": " << column << ", " << row;
            }
        }
    }
}

// Ten minutes of a screen, looked at every other second.
TEST(StringFigures, LeaveNoSpotLitForLongOrUnchanged) {
    Figures figures(4, kWide);
    Screen screen(kWide, 60);
    const std::size_t count = screen.Pixels.size();
    std::vector<std::uint32_t> before(count);
    std::vector<int> unchanged(count);
    std::vector<int> brightLooks(count);
    int longest = 0;
    for (int look = 0; look < 300; ++look) {
        figures.Step(20);
        screen.Show(figures.Drawn);
        for (std::size_t i = 0; i < count; ++i) {
            const bool stands = screen.Pixels[i] == before[i] && IsLit(screen.Pixels[i]);
            unchanged[i] = stands ? unchanged[i] + 1 : 0;
            longest = std::max(longest, unchanged[i]);
            brightLooks[i] += Brightest(screen.Pixels[i]) > 96 ? 1 : 0;
        }
        before = screen.Pixels;
    }
    EXPECT_LT(longest, 20) << "looks";
    EXPECT_LT(*std::max_element(brightLooks.begin(), brightLooks.end()), 200) << "of 300";
}

// One figure lies behind the others: larger, fainter, slower.
TEST(StringFigures, HaveDepth) {
    for (std::uint32_t seed = 1; seed <= 10; ++seed) {
        const Figures figures(seed, kWide);
        struct Layer {
            int Brightest = 0;
            float Left = 1e9F, Right = 0;
        };
        std::map<std::uint32_t, Layer> layers;
        for (const Line& line : figures.Drawn.Lines()) {
            Layer& layer = layers[line.Key / StringFigure::kKeys];
            layer.Brightest = std::max(layer.Brightest, line.Light.First + line.Light.Second);
            layer.Left = std::min({layer.Left, line.FromX, line.ToX});
            layer.Right = std::max({layer.Right, line.FromX, line.ToX});
        }
        ASSERT_EQ(layers.size(), 3U);
        const Layer& back = layers.at(0);
        for (std::uint32_t figure = 1; figure < 3; ++figure) {
            EXPECT_GT(layers.at(figure).Brightest, 1.4 * back.Brightest) << seed;
            EXPECT_LT(layers.at(figure).Right - layers.at(figure).Left, back.Right - back.Left)
                << seed;
        }
    }
}

TEST(StringFigures, AreOneBehindAndAsManyBeforeItAsThereIsRoomFor) {
    const struct {
        RecordingFrame::Size Form;
        std::size_t Figures;
    } cases[] = {{{10000, 10000}, 2}, {kFormSize, 3},     {kWide, 3}, {kUpright, 3},
                 {kTwoMonitors, 5},   {{99000, 9000}, 6}, {{0, 0}, 2}};
    for (const auto& [form, wanted] : cases) {
        const Figures figures(7, form);
        std::map<std::uint32_t, int> strings;
        for (const Line& line : figures.Drawn.Lines()) {
            ++strings[line.Key / StringFigure::kKeys];
        }
        EXPECT_EQ(strings.size(), wanted) << form.Width;
    }
}

TEST(StringFigures, SpanStringsAtAnEvenRateAndRetireThem) {
    Figures figures(5, kWide);
    std::size_t most = 0;
    std::size_t fewest = 10000;
    for (int step = 0; step < 6000; ++step) {
        const std::size_t before = figures.Drawn.Lines().size();
        figures.Step(1);
        ASSERT_LE(figures.Drawn.Lines().size(), before + 9) << step;
        most = std::max(most, figures.Drawn.Lines().size());
        fewest = std::min(fewest, figures.Drawn.Lines().size());
    }
    EXPECT_LT(most, 1200U);
    EXPECT_GT(fewest, 300U);
}

TEST(StringFigures, ShowTheirLinesInTheOrderOfTheirKeys) {
    Figures figures(5, kWide);
    for (int step = 0; step < 3000; ++step) {
        figures.Step(1);
        ASSERT_TRUE(
            std::is_sorted(figures.Drawn.Lines().begin(), figures.Drawn.Lines().end(),
                           [](const Line& one, const Line& other) { return one.Key < other.Key; }));
    }
}

TEST(StringFigures, StandStillWithoutPace) {
    Figures figures(5, kFormSize);
    figures.Step(300);
    const std::vector<Line> before(figures.Drawn.Lines().begin(), figures.Drawn.Lines().end());
    figures.Drawn.Step(0);
    EXPECT_TRUE(std::equal(before.begin(), before.end(), figures.Drawn.Lines().begin(),
                           figures.Drawn.Lines().end()));
}

TEST(StringFigures, LiveOnAFormWithoutAnySize) {
    Figures figures(5, {0, 0});
    figures.Step(500);
    EXPECT_FALSE(figures.Drawn.Lines().empty());
}

}  // namespace
}  // namespace ambrio
