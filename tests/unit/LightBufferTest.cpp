#include "saver/animation/LightBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "saver/animation/LineSet.h"
#include "saver/animation/Random.h"

namespace ambrio {
namespace {

constexpr Glow kDark{};
constexpr Glow kLight{200, 50};
constexpr Glow kFull{255, 255};
constexpr Palette kPalette{{255, 128, 64}, {64, 128, 255}};

constexpr std::int32_t Units(double pixels) {
    return static_cast<std::int32_t>(pixels * 256);
}

class LightBufferTest : public testing::Test {
  protected:
    static constexpr std::int32_t kWidth = 200;
    static constexpr std::int32_t kHeight = 100;

    [[nodiscard]] static std::size_t IndexOf(std::int32_t x, std::int32_t y) {
        const std::int32_t index = y * kWidth + x;
        return static_cast<std::size_t>(index);
    }
    [[nodiscard]] std::uint32_t At(std::int32_t x, std::int32_t y) const {
        return pixels_[IndexOf(x, y)];
    }
    [[nodiscard]] bool IsBlack() const {
        return std::all_of(pixels_.begin(), pixels_.end(), [](auto pixel) { return pixel == 0; });
    }

    [[nodiscard]] static LightBuffer Buffer(std::vector<std::uint32_t>& pixels,
                                            std::int32_t thickness) {
        LightBuffer buffer(kWidth, kHeight, pixels.data(), thickness);
        buffer.SetPalette(kPalette);
        return buffer;
    }

    // The rows that a level line leaves light in, by how much: 0 to 255 of a white line.
    [[nodiscard]] static std::vector<std::uint32_t> Profile(std::int32_t thickness) {
        std::vector<std::uint32_t> pixels(std::size_t{kWidth} * kHeight);
        LightBuffer buffer = Buffer(pixels, thickness);
        buffer.Change({Units(10), Units(50.5), Units(30), Units(50.5)}, kDark, kFull);
        std::vector<std::uint32_t> rows;
        for (std::int32_t y = 0; y < kHeight; ++y) {
            if (const std::uint32_t pixel = pixels[IndexOf(20, y)]; pixel != 0) {
                rows.push_back(pixel & 0xFF);
            }
        }
        return rows;
    }

    std::vector<std::uint32_t> pixels_ = std::vector<std::uint32_t>(std::size_t{kWidth} * kHeight);
    LightBuffer buffer_ = Buffer(pixels_, Units(1));
};

TEST_F(LightBufferTest, ShowsALineFromEndToEndAndNothingElse) {
    buffer_.Change({Units(10), Units(20.5), Units(30), Units(20.5)}, kDark, kLight);
    EXPECT_NE(At(10, 20), 0U);
    EXPECT_NE(At(29, 20), 0U);
    EXPECT_EQ(At(9, 20), 0U);
    EXPECT_EQ(At(30, 20), 0U);
    EXPECT_EQ(At(20, 19), 0U);
    EXPECT_EQ(At(20, 21), 0U);
    const std::uint32_t pixel = At(20, 20);
    EXPECT_GT(pixel >> 16, (pixel >> 8) & 0xFF);
    EXPECT_GT((pixel >> 8) & 0xFF, pixel & 0xFF);
}

TEST_F(LightBufferTest, SmoothsALineBetweenTwoRows) {
    buffer_.Change({Units(10), Units(21), Units(30), Units(21)}, kDark, kLight);
    EXPECT_EQ(At(20, 20), At(20, 21));
    EXPECT_NE(At(20, 20), 0U);
}

TEST_F(LightBufferTest, AddsLightWhereLinesCross) {
    buffer_.Change({Units(10), Units(20.5), Units(30), Units(20.5)}, kDark, kLight);
    const std::uint32_t single = At(20, 20);
    buffer_.Change({Units(20.5), Units(10), Units(20.5), Units(30)}, kDark, kLight);
    EXPECT_GT(At(20, 20) >> 16, single >> 16);
    EXPECT_EQ(At(15, 20), single);
}

TEST_F(LightBufferTest, IsBlackAgainWhenEveryLineIsTakenOutInAnyOrder) {
    Random random(11);
    LightBuffer buffer = Buffer(pixels_, 400);
    std::vector<RasterLine> lines;
    for (int i = 0; i < 500; ++i) {
        const auto place = [&] { return Units(random.Between(-300, 400)); };
        lines.push_back({place(), place(), place(), place()});
        buffer.Change(lines.back(), kDark, kFull);
    }
    EXPECT_FALSE(IsBlack());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        buffer.Change(lines[i * 7 % lines.size()], kFull, kDark);
    }
    EXPECT_TRUE(IsBlack());
}

TEST_F(LightBufferTest, ALineIsAsThickAsItIsToBe) {
    const std::uint32_t full = Profile(Units(1)).front();
    for (const int pixels : {1, 3, 9, 33, 63}) {
        EXPECT_EQ(Profile(Units(pixels)), std::vector(static_cast<std::size_t>(pixels), full));
    }
    const std::vector<std::uint32_t> twoPixels = Profile(Units(2));
    ASSERT_EQ(twoPixels.size(), 3U);
    EXPECT_EQ(twoPixels[1], full);
    EXPECT_EQ(twoPixels[0], twoPixels[2]);
    EXPECT_LT(twoPixels[0], full);
    EXPECT_EQ(Profile(-1), Profile(LightBuffer::kThinnest));
    EXPECT_EQ(Profile(Units(1000)), Profile(LightBuffer::kThickest));
}

TEST_F(LightBufferTest, ASlantingLineIsAsThickAsALevelOne) {
    LightBuffer buffer = Buffer(pixels_, Units(20));
    buffer.Change({Units(30), Units(0), Units(130), Units(100)}, kDark, kFull);
    const std::uint32_t full = At(80, 50);
    const auto row = pixels_.begin() + static_cast<std::ptrdiff_t>(IndexOf(0, 50));
    // At 45 degrees a row meets 20 * 1.41 pixels of it.
    EXPECT_NEAR(static_cast<double>(std::count(row, row + kWidth, full)), 28, 1.5);
}

TEST_F(LightBufferTest, LinesAreALittleThickerThanAPixelOf96DpiAtEveryDpi) {
    EXPECT_EQ(LineSet::Thickness(15), 324);   // 96 dpi: 1.27 pixels
    EXPECT_EQ(LineSet::Thickness(10), 486);   // 144 dpi
    EXPECT_EQ(LineSet::Thickness(7.5), 649);  // 192 dpi
    EXPECT_EQ(LineSet::Thickness(5), 973);    // 288 dpi
    EXPECT_EQ(LineSet::Thickness(0), 4864);
}

TEST_F(LightBufferTest, MixesEachLineFromTheTwoColoursOfThePalette) {
    const RasterLine line{Units(10), Units(20.5), Units(30), Units(20.5)};
    const auto shown = [&](Glow light) {
        buffer_.Change(line, kDark, light);
        const std::uint32_t pixel = At(20, 20);
        buffer_.Change(line, light, kDark);
        return pixel;
    };
    buffer_.SetPalette({{255, 0, 128}, {0, 255, 0}});
    EXPECT_EQ(shown({100, 0}) & 0x00FF00, 0U);
    EXPECT_GT(shown({100, 0}) >> 16, shown({100, 0}) & 0xFF) << "half as much blue as red";
    EXPECT_GT(shown({100, 0}) & 0xFF, 30U);
    EXPECT_EQ(shown({0, 100}) & 0xFF00FF, 0U);
    EXPECT_EQ(shown({100, 100}), shown({100, 0}) + shown({0, 100}));
    EXPECT_NEAR(shown({255, 0}) >> 16, 255 * (1 - std::exp(-255 / 210.0)), 3);
}

// A palette walks slowly; to draw the whole screen anew for it would cost too much.
TEST_F(LightBufferTest, ShowsANewPaletteWhereItIsTouchedNext) {
    const RasterLine level{Units(10), Units(20.5), Units(30), Units(20.5)};
    const RasterLine upright{Units(20.5), Units(10), Units(20.5), Units(30)};
    buffer_.Change(level, kDark, kLight);
    const std::uint32_t old = At(15, 20);
    buffer_.SetPalette({{0, 255, 0}, {0, 0, 255}});
    EXPECT_EQ(At(15, 20), old);
    buffer_.Change(upright, kDark, kLight);
    EXPECT_EQ(At(20, 20) >> 16, 0U) << "the crossing has none of the old red";
    EXPECT_EQ(At(15, 20), old);
    buffer_.Change(upright, kLight, kDark);
    buffer_.Change(level, kLight, kDark);
    EXPECT_TRUE(IsBlack());
}

// Where many strings of a figure meet.
TEST_F(LightBufferTest, BearsTheLightOfManyLinesAtOnePlace) {
    const RasterLine line{Units(10), Units(20.5), Units(30), Units(20.5)};
    const Palette redAndBlue{{255, 0, 0}, {0, 0, 255}};
    buffer_.SetPalette(redAndBlue);
    std::uint32_t before = 0;
    for (int i = 0; i < 250; ++i) {
        buffer_.Change(line, kDark, {0, 255});
        ASSERT_GE(At(20, 20), before) << i;
        before = At(20, 20);
    }
    EXPECT_EQ(before >> 8, 0U) << "nothing of the other colour";
    EXPECT_GE(before, 250U);
}

// Whatever the lines and however thick they are: who copies the changed parts, and each of them
// once, shows the whole picture.
TEST_F(LightBufferTest, ToldAboutChangesCoversEveryChangedPixelOnce) {
    Random random(7);
    for (const double thickness : {1.0, 1.27, 5.0, 20.0, 33.0, 50.0, 64.0}) {
        std::fill(pixels_.begin(), pixels_.end(), 0U);
        LightBuffer buffer = Buffer(pixels_, Units(thickness));
        EXPECT_TRUE(buffer.TakeChanges().empty());
        for (int i = 0; i < 100; ++i) {
            const std::vector<std::uint32_t> before = pixels_;
            const auto place = [&] { return Units(random.Between(-50, 250)); };
            buffer.Change({place(), place(), place(), place()}, kDark, kLight);
            std::vector<int> covered(pixels_.size());
            for (const PixelRect& part : buffer.TakeChanges()) {
                for (std::int32_t y = part.Top; y < part.Bottom; ++y) {
                    for (std::int32_t x = part.Left; x < part.Right; ++x) {
                        ++covered.at(IndexOf(x, y));
                    }
                }
            }
            std::size_t right = 0;
            while (right < pixels_.size() && covered[right] <= 1 &&
                   (pixels_[right] == before[right] || covered[right] == 1)) {
                ++right;
            }
            ASSERT_EQ(right, pixels_.size())
                << thickness << ": covered " << covered[right] << " times, "
                << (pixels_[right] == before[right] ? "not " : "") << "changed";
            EXPECT_TRUE(buffer.TakeChanges().empty());
        }
    }
}

TEST_F(LightBufferTest, IgnoresPointsAndWhatIsOutside) {
    buffer_.Change({Units(5), Units(5), Units(5), Units(5)}, kDark, kLight);
    buffer_.Change({Units(-50), Units(-5), Units(300), Units(-5)}, kDark, kLight);
    buffer_.Change({Units(500), Units(5), Units(900), Units(50)}, kDark, kLight);
    EXPECT_TRUE(IsBlack());
    EXPECT_TRUE(buffer_.TakeChanges().empty());
}

TEST_F(LightBufferTest, SetShowsTheNextLinesAndNoOthers) {
    const Line level{150, 300, 1500, 300, kLight, 4};
    const Line upright{600, 150, 600, 900, kLight, 7};
    Line dimmer = level;
    dimmer.Light = {20, 5};
    Line elsewhere = level;
    elsewhere.FromY = elsewhere.ToY = 600;
    Line twin = level;
    twin.Key = 5;
    LineSet set(15, 15);
    const auto shown = [&](std::vector<Line> lines) {
        set.Show(lines, buffer_);
        return pixels_;
    };
    const auto both = shown({level, upright});
    const auto one = shown({upright});
    EXPECT_NE(both, one);
    EXPECT_EQ(both, shown({level, upright}));
    EXPECT_EQ(both, shown({upright, level})) << "also in another order than that of the keys";
    const auto twice = shown({level, twin, upright});
    EXPECT_NE(twice, both);
    const auto moved = shown({elsewhere, upright});
    shown({});
    EXPECT_EQ(moved, shown({elsewhere, upright})) << "the same line at another place";
    EXPECT_NE(shown({dimmer, upright}), both);
    EXPECT_EQ(shown({upright}), one);
    shown({});
    EXPECT_TRUE(IsBlack());
}

TEST_F(LightBufferTest, SetTurnsTwipsIntoPixelsAcrossAndDownEachByItsOwnMeasure) {
    buffer_.Change({Units(10), Units(30), Units(40), Units(90)}, kDark, kLight);
    const auto wanted = pixels_;
    buffer_.Change({Units(10), Units(30), Units(40), Units(90)}, kLight, kDark);
    ASSERT_TRUE(IsBlack());
    const Line line{200, 360, 800, 1080, kLight, 1};
    LineSet(20, 12).Show(std::span(&line, 1), buffer_);
    EXPECT_EQ(pixels_, wanted);
}

}  // namespace
}  // namespace ambrio
