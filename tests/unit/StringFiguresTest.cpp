#include "saver/animation/StringFigures.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "saver/animation/LightBuffer.h"
#include "saver/animation/LineSet.h"
#include "tests/support/RecordingFrame.h"

namespace ambrio {
namespace {

constexpr Colour kFrame{60, 120, 200};

// The share of pixels that show any light, and how much light they show, both in percent.
struct Coverage {
    double Lit = 0;
    double Brightness = 0;
};

Coverage Measure(const std::vector<std::uint32_t>& pixels) {
    Coverage coverage;
    for (const std::uint32_t pixel : pixels) {
        const std::uint32_t brightest = std::max({pixel >> 16, (pixel >> 8) & 0xFF, pixel & 0xFF});
        coverage.Lit += brightest > 24 ? 1 : 0;
        coverage.Brightness += brightest / 255.0;
    }
    coverage.Lit *= 100.0 / static_cast<double>(pixels.size());
    coverage.Brightness *= 100.0 / static_cast<double>(pixels.size());
    return coverage;
}

TEST(StringFigures, AreNeverAnEmptyScreenNorNoiseNorAFlatFill) {
    constexpr std::int32_t kWidth = 1024;
    constexpr std::int32_t kHeight = 768;
    for (std::uint32_t seed = 1; seed <= 4; ++seed) {
        Random random(seed);
        StringFigures figures(kWidth * 15, kHeight * 15, random);
        for (int step = 1; step <= 3000; ++step) {
            figures.Step(kFrame, 1);
            if (step % 500 != 0) {
                continue;
            }
            std::vector<std::uint32_t> pixels(std::size_t{kWidth} * kHeight);
            LightBuffer buffer(kWidth, kHeight, pixels.data(), LineSet::Thickness(15));
            LineSet(15, 15).Show(figures.Lines(), buffer);
            const Coverage coverage = Measure(pixels);
            EXPECT_GT(coverage.Lit, 2) << "seed " << seed << ", step " << step;
            EXPECT_LT(coverage.Lit, 45) << "seed " << seed << ", step " << step;
            EXPECT_LT(coverage.Brightness, 20) << "seed " << seed << ", step " << step;
        }
    }
}

TEST(StringFigures, SpanStringsAtAnEvenRateAndRetireThem) {
    Random random(5);
    StringFigures figures(kFormSize.Width, kFormSize.Height, random);
    std::size_t most = 0;
    for (int step = 0; step < 6000; ++step) {
        const std::size_t before = figures.Lines().size();
        figures.Step(kFrame, 1);
        ASSERT_LE(figures.Lines().size(), before + 2) << step;
        most = std::max(most, figures.Lines().size());
    }
    EXPECT_LT(most, 1000U);
    EXPECT_GT(most, 150U);
}

// The mean place of all strings that are spanned within a minute, in shares of the form's sides,
// and how far they spread.
struct Spread {
    double MeanX = 0;
    double MeanY = 0;
    float Leftmost = 1;
    float Rightmost = 0;
    float Highest = 1;
    float Lowest = 0;
};

Spread SpreadOn(std::int32_t width, std::int32_t height) {
    Random random(9);
    StringFigures figures(width, height, random);
    Spread spread;
    double count = 0;
    for (int step = 0; step < 600; ++step) {
        figures.Step(kFrame, 1);
        for (const Line& line : figures.Lines()) {
            const float x = (line.FromX + line.ToX) / 2 / static_cast<float>(width);
            const float y = (line.FromY + line.ToY) / 2 / static_cast<float>(height);
            spread.MeanX += x;
            spread.MeanY += y;
            spread.Leftmost = std::min(spread.Leftmost, x);
            spread.Rightmost = std::max(spread.Rightmost, x);
            spread.Highest = std::min(spread.Highest, y);
            spread.Lowest = std::max(spread.Lowest, y);
            count += 1;
        }
    }
    spread.MeanX /= count;
    spread.MeanY /= count;
    return spread;
}

TEST(StringFigures, UseTheWholeFormAlongItsLongerSideAndItsMiddleAcross) {
    const Spread wide = SpreadOn(28800, 16200);
    EXPECT_LT(wide.Leftmost, 0.15F);
    EXPECT_GT(wide.Rightmost, 0.85F);
    EXPECT_NEAR(wide.MeanX, 0.5, 0.15);
    EXPECT_NEAR(wide.MeanY, 0.5, 0.15);
    const Spread upright = SpreadOn(16200, 28800);
    EXPECT_LT(upright.Highest, 0.15F);
    EXPECT_GT(upright.Lowest, 0.85F);
    EXPECT_NEAR(upright.MeanX, 0.5, 0.15);
    EXPECT_NEAR(upright.MeanY, 0.5, 0.15);
}

TEST(StringFigures, StandStillWithoutPace) {
    Random random(5);
    StringFigures figures(kFormSize.Width, kFormSize.Height, random);
    for (int step = 0; step < 300; ++step) {
        figures.Step(kFrame, 1);
    }
    const std::vector<Line> before(figures.Lines().begin(), figures.Lines().end());
    figures.Step(kFrame, 0);
    EXPECT_TRUE(
        std::equal(before.begin(), before.end(), figures.Lines().begin(), figures.Lines().end()));
}

TEST(StringFigures, LiveOnAFormWithoutAnySize) {
    Random random(5);
    StringFigures figures(0, 0, random);
    for (int step = 0; step < 500; ++step) {
        figures.Step(kFrame, 1);
    }
    EXPECT_FALSE(figures.Lines().empty());
}

}  // namespace
}  // namespace ambrio
