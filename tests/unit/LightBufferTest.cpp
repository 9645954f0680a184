#include "saver/animation/LightBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "saver/animation/LineSet.h"
#include "saver/animation/Random.h"

namespace ambrio {
namespace {

constexpr Colour kDark{};
constexpr Colour kLight{200, 100, 50};

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

    std::vector<std::uint32_t> pixels_ = std::vector<std::uint32_t>(std::size_t{kWidth} * kHeight);
    LightBuffer buffer_{kWidth, kHeight, pixels_.data()};
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
    buffer_.SetThickness(400);
    std::vector<RasterLine> lines;
    for (int i = 0; i < 500; ++i) {
        const auto place = [&] { return Units(random.Between(-300, 400)); };
        lines.push_back({place(), place(), place(), place()});
        buffer_.Change(lines.back(), kDark, {255, 255, 255});
    }
    EXPECT_FALSE(IsBlack());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        buffer_.Change(lines[i * 7 % lines.size()], {255, 255, 255}, kDark);
    }
    EXPECT_TRUE(IsBlack());
}

TEST_F(LightBufferTest, ToldAboutChangesCoversEveryChangedPixelOnce) {
    EXPECT_TRUE(buffer_.TakeChanges().empty());
    buffer_.Change({Units(3), Units(3), Units(180), Units(90)}, kDark, kLight);
    std::vector<int> covered(pixels_.size());
    for (const PixelRect& part : buffer_.TakeChanges()) {
        for (std::int32_t y = part.Top; y < part.Bottom; ++y) {
            for (std::int32_t x = part.Left; x < part.Right; ++x) {
                ++covered.at(IndexOf(x, y));
            }
        }
    }
    for (std::size_t i = 0; i < pixels_.size(); ++i) {
        ASSERT_LE(covered[i], 1) << i;
        ASSERT_TRUE(pixels_[i] == 0 || covered[i] == 1) << i;
    }
    EXPECT_TRUE(buffer_.TakeChanges().empty());
}

TEST_F(LightBufferTest, IgnoresPointsAndWhatIsOutside) {
    buffer_.Change({Units(5), Units(5), Units(5), Units(5)}, kDark, kLight);
    buffer_.Change({Units(-50), Units(-5), Units(300), Units(-5)}, kDark, kLight);
    buffer_.Change({Units(500), Units(5), Units(900), Units(50)}, kDark, kLight);
    EXPECT_TRUE(IsBlack());
    EXPECT_TRUE(buffer_.TakeChanges().empty());
}

TEST_F(LightBufferTest, SetShowsTheNextLinesAndNoOthers) {
    const Line level{150, 300, 1500, 300, kLight};
    const Line upright{600, 150, 600, 900, kLight};
    Line dimmer = level;
    dimmer.Light = {20, 10, 5};
    LineSet set(15, 15);
    const auto shown = [&](std::vector<Line> lines) {
        set.Show(lines, buffer_);
        return pixels_;
    };
    const auto both = shown({level, upright});
    const auto one = shown({upright});
    EXPECT_NE(both, one);
    EXPECT_EQ(both, shown({upright, level})) << "in another order";
    const auto twice = shown({level, level, upright});
    EXPECT_NE(twice, both);
    EXPECT_NE(shown({dimmer, upright}), both);
    EXPECT_EQ(shown({upright}), one);
    shown({});
    EXPECT_TRUE(IsBlack());
}

}  // namespace
}  // namespace ambrio
