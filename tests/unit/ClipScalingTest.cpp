#include "saver/model/ClipScaling.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ambrio {
namespace {

constexpr std::uint32_t kClearColour = 0xFF00FF;
constexpr std::uint32_t kBelow = 0x102030;

// A picture of one colour with a clear rim.
struct Rimmed {
    int Width;
    int Height;
    int Rim;
    std::uint32_t Colour;

    [[nodiscard]] std::vector<std::uint32_t> Pixels() const {
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < Height; ++y) {
            for (int x = 0; x < Width; ++x) {
                const bool inside = x >= Rim && x < Width - Rim && y >= Rim && y < Height - Rim;
                pixels.push_back(inside ? Colour : kClearColour);
            }
        }
        return pixels;
    }
};

// What a room shows into which that picture is drawn.
struct Room {
    int Width;
    int Height;
    std::vector<std::uint32_t> Pixels;

    Room(int width, int height)
        : Width(width), Height(height), Pixels(static_cast<std::size_t>(width * height), kBelow) {}

    void Draw(const Rimmed& picture, double scale) {
        const std::vector<std::uint32_t> pixels = picture.Pixels();
        ScaledPicture(pixels, picture.Width, kClearColour, scale).DrawInto(Pixels, Width);
    }
    [[nodiscard]] std::uint32_t At(int x, int y) const {
        return Pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) +
                         static_cast<std::size_t>(x));
    }
    [[nodiscard]] int Count(std::uint32_t colour) const {
        return static_cast<int>(std::count(Pixels.begin(), Pixels.end(), colour));
    }
};

TEST(ClipScaling, ShowsPixelByPixelAtTheResolutionOfTheClip) {
    Room room(10, 8);
    room.Draw({6, 4, 1, 0xA0B0C0}, 1);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 10; ++x) {
            const bool inside = x >= 3 && x < 7 && y >= 3 && y < 5;
            EXPECT_EQ(inside ? 0xA0B0C0 : kBelow, room.At(x, y)) << x << ", " << y;
        }
    }
}

TEST(ClipScaling, FillsItsRoomWhenItBecomesLargerOrSmaller) {
    for (const double scale : {0.5, 0.75, 1.25, 1.5, 2.0}) {
        const int width = static_cast<int>(40 * scale);
        const int height = static_cast<int>(20 * scale);
        Room room(width, height);
        room.Draw({40, 20, 0, 0xA0B0C0}, scale);
        EXPECT_EQ(width * height, room.Count(0xA0B0C0)) << scale;
    }
}

// The rim mixes with what lies below and never with the colour that marks what is clear.
TEST(ClipScaling, LeavesNothingOfTheClearColour) {
    for (const double scale : {0.5, 0.6, 1.0, 1.25, 1.5, 2.0}) {
        Room room(80, 60);
        room.Draw({40, 30, 7, 0x008000}, scale);
        EXPECT_GT(room.Count(0x008000), 40) << scale;
        EXPECT_EQ(kBelow, room.At(0, 0)) << scale;
        for (const std::uint32_t pixel : room.Pixels) {
            ASSERT_LE(pixel >> 16, 0x10U) << scale << ": more red than in either";
            ASSERT_LE(pixel & 0xFF, 0x30U) << scale << ": more blue than in either";
        }
    }
}

TEST(ClipScaling, SmoothsTheRimWhereSizesChange) {
    Room room(60, 40);
    room.Draw({20, 12, 3, 0xFFFFFF}, 2.5);
    int between = 0;
    for (const std::uint32_t pixel : room.Pixels) {
        between += pixel != kBelow && pixel != 0xFFFFFF ? 1 : 0;
    }
    EXPECT_GT(between, 50);
}

TEST(ClipScaling, CutsWhatIsLargerThanItsRoomAtBothSides) {
    Room room(10, 10);
    room.Draw({20, 20, 6, 0x123456}, 1);
    EXPECT_EQ(64, room.Count(0x123456)) << "the middle of the picture";
    EXPECT_EQ(kBelow, room.At(0, 0));
    EXPECT_EQ(0x123456U, room.At(1, 1));
    EXPECT_EQ(0x123456U, room.At(8, 8));
}

TEST(ClipScaling, DrawsNothingOfAnEmptyPicture) {
    Room room(10, 10);
    ScaledPicture().DrawInto(room.Pixels, 10);
    ScaledPicture({}, 0, kClearColour, 1).DrawInto(room.Pixels, 10);
    room.Draw({20, 20, 0, 0x123456}, 0);
    EXPECT_EQ(100, room.Count(kBelow));
}

TEST(ClipScale, IsThatOfTheScreenUnlessTheRoomIsSmaller) {
    EXPECT_DOUBLE_EQ(1.5, ClipScale(100, 30, 414, 83, 1.5));
    EXPECT_DOUBLE_EQ(0.5, ClipScale(552, 110, 276, 55, 1));
    EXPECT_DOUBLE_EQ(0.25, ClipScale(100, 220, 276, 55, 1)) << "as low as the room";
    EXPECT_DOUBLE_EQ(0.75, ClipScale(552, 110, 414, 83, 1.5)) << "as wide as the room";
    EXPECT_DOUBLE_EQ(0, ClipScale(0, 10, 276, 55, 1));
    EXPECT_DOUBLE_EQ(0, ClipScale(10, 0, 276, 55, 1));
}

}  // namespace
}  // namespace ambrio
