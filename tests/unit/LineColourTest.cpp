#include <gtest/gtest.h>

#include <algorithm>

#include "saver/animation/ColourFamily.h"

namespace ambrio {
namespace {

TEST(LineColour, HasTheFramesHueAtFullLightAndItsRichness) {
    EXPECT_EQ(LineColour({90, 40, 40}, 0), (Colour{255, 113, 113}));
    EXPECT_EQ(LineColour({40, 90, 60}, 0), (Colour{113, 255, 170}));
    EXPECT_EQ(LineColour({40, 60, 90}, 0), (Colour{113, 170, 255}));
    EXPECT_EQ(LineColour({60, 40, 90}, 0), (Colour{170, 113, 255}));
}

TEST(LineColour, IsNeitherPaleNorGlaringWhateverTheFrameIs) {
    EXPECT_EQ(LineColour({100, 100, 90}, 0), (Colour{255, 255, 158}));
    EXPECT_EQ(LineColour({50, 50, 50}, 0), (Colour{255, 158, 158}));
    EXPECT_EQ(LineColour({0, 0, 0}, 0), (Colour{255, 158, 158}));
    EXPECT_EQ(LineColour({200, 0, 0}, 0), (Colour{255, 56, 56}));
}

TEST(LineColour, IsBrightOnEveryFrameColour) {
    for (const Colour frame :
         {Colour{}, Colour{255, 255, 255}, Colour{0, 9, 0}, Colour{60, 120, 200}}) {
        for (const double place : {-1.0, 0.0, 1.0}) {
            const Colour line = LineColour(frame, place);
            EXPECT_EQ(std::max({line.Red, line.Green, line.Blue}), 255);
            EXPECT_LT(std::min({line.Red, line.Green, line.Blue}), 170);
        }
    }
}

TEST(LineColour, TurnsToEitherSideWithThePlaceInTheFamily) {
    EXPECT_EQ(LineColour({90, 40, 40}, -1), (Colour{255, 113, 184}));
    EXPECT_EQ(LineColour({90, 40, 40}, 1), (Colour{255, 184, 113}));
}

TEST(LineColour, IsDimmedByStrength) {
    EXPECT_EQ(Dimmed({200, 100, 50}, 0.5), (Colour{100, 50, 25}));
    EXPECT_EQ(Dimmed({200, 100, 50}, 1), (Colour{200, 100, 50}));
    EXPECT_EQ(Dimmed({200, 100, 50}, 0), (Colour{0, 0, 0}));
}

}  // namespace
}  // namespace ambrio
