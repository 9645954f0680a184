#include "saver/animation/ColourWalk.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

Colour After(int steps, const std::array<ColourWalk::Component, 3>& start) {
    ColourWalk walk(start);
    for (int i = 0; i < steps; ++i) {
        walk.Step();
    }
    return walk.Current();
}

TEST(ColourWalk, GivesEachComponentItsOwnStep) {
    EXPECT_EQ(After(3, {{{10, 1}, {20, -2.5}, {30, 0.25}}}), (Colour{13, 13, 31}));
}

TEST(ColourWalk, RoundsToTheNearestWholeNumber) {
    EXPECT_EQ(After(0, {{{10.4, 1}, {10.6, 1}, {254.9, 1}}}), (Colour{10, 11, 255}));
}

TEST(ColourWalk, TurnsAComponentThatLeavesItsRangeAndStepsItBack) {
    // 254 + 3 is outside, so back to 254 and then down; 1 - 2 likewise up; the ends are inside.
    EXPECT_EQ(After(1, {{{254, 3}, {1, -2}, {253, 2}}}), (Colour{254, 1, 255}));
    EXPECT_EQ(After(2, {{{254, 3}, {1, -2}, {253, 2}}}), (Colour{251, 3, 255}));
    EXPECT_EQ(After(3, {{{254, 3}, {1, -2}, {253, 2}}}), (Colour{248, 5, 253}));
}

TEST(ColourWalk, WalksThroughTheWholeRangeFromAnyStart) {
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        Random random(seed);
        ColourWalk walk = ColourWalk::StartAnywhere(random);
        int darkest = 255;
        int lightest = 0;
        for (int i = 0; i < 1000; ++i) {
            walk.Step();
            darkest = std::min<int>(darkest, walk.Current().Red);
            lightest = std::max<int>(lightest, walk.Current().Red);
        }
        EXPECT_LE(darkest, 3) << "seed " << seed;
        EXPECT_GE(lightest, 252) << "seed " << seed;
    }
}

}  // namespace
}  // namespace ambrio
