#include "saver/animation/ColourFamily.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace ambrio {
namespace {

int Lightest(Colour colour) {
    return std::max({colour.Red, colour.Green, colour.Blue});
}
int Palest(Colour colour) {
    return std::min({colour.Red, colour.Green, colour.Blue});
}

// Where a colour stands on the circle of hues, 0 to 359.
double Degrees(Colour colour) {
    const double spread = Lightest(colour) - Palest(colour);
    if (colour.Red == Lightest(colour)) {
        const double hue = 60 * (colour.Green - colour.Blue) / spread;
        return hue < 0 ? hue + 360 : hue;
    }
    return colour.Green == Lightest(colour) ? 120 + 60 * (colour.Blue - colour.Red) / spread
                                            : 240 + 60 * (colour.Red - colour.Green) / spread;
}
double Apart(double one, double other) {
    const double way = std::abs(one - other);
    return std::min(way, 360 - way);
}

TEST(ColourFamily, StandsToBothSidesOfTheFramesHue) {
    const struct {
        Colour Frame;
        double First;
        double Second;
    } cases[] = {
        {{90, 40, 40}, 317, 43},   {{40, 90, 40}, 77, 163},   {{20, 60, 140}, 177, 263},
        {{200, 190, 0}, 14, 100},  {{120, 0, 160}, 242, 328}, {{200, 0, 60}, 299, 25},
        {{0, 130, 130}, 137, 223},
    };
    for (const auto& [frame, first, second] : cases) {
        const Palette palette = ColourFamily(frame).Current();
        EXPECT_LT(Apart(Degrees(palette.First), first), 2) << Degrees(palette.First);
        EXPECT_LT(Apart(Degrees(palette.Second), second), 2) << Degrees(palette.Second);
    }
}

// Lines have to stand out from a black ground, and be no pastel.
TEST(ColourFamily, IsBrightAndSaturatedWhateverTheFrameIs) {
    for (int code = 0; code < 18 * 18 * 18; ++code) {
        const auto component = [](int part) { return static_cast<std::uint8_t>(part % 18 * 15); };
        const Colour frame{component(code), component(code / 18), component(code / 18 / 18)};
        const auto [first, second] = ColourFamily(frame).Current();
        for (const Colour line : {first, second}) {
            ASSERT_EQ(Lightest(line), 255) << code;
            ASSERT_LE(Palest(line), 255 * 0.3) << code;
            ASSERT_GE(0.3 * line.Red + 0.6 * line.Green + 0.1 * line.Blue, 255 * 0.34) << code;
        }
    }
}

TEST(ColourFamily, FollowsTheFrameBySmallStepsTheShorterWayRound) {
    ColourFamily family({200, 0, 40});  // 348 degrees
    double before = Degrees(family.Current().First);
    const double start = before;
    const Colour yellow{200, 190, 0};  // 57 degrees
    int steps = 0;
    while (family.Current() != ColourFamily(yellow).Current()) {
        family.Follow(yellow);
        const double now = Degrees(family.Current().First);
        ASSERT_LT(Apart(now, before), 5) << steps;
        before = now;
        ASSERT_LT(++steps, 40);
    }
    EXPECT_NEAR(steps, Apart(start, before) / 3, 2);
}

TEST(ColourFamily, StaysWhereItIsWhenTheFrameDoes) {
    for (const Colour frame : {Colour{200, 0, 40}, Colour{0, 9, 0}, Colour{77, 77, 77}, Colour{}}) {
        ColourFamily family(frame);
        const Palette before = family.Current();
        family.Follow(frame);
        EXPECT_EQ(before, family.Current());
    }
}

}  // namespace
}  // namespace ambrio
