#include "saver/animation/Contrast.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

constexpr Colour kBlack{};
constexpr Colour kWhite{255, 255, 255};

TEST(Contrast, IsMeasuredFromOneToTwentyOne) {
    EXPECT_DOUBLE_EQ(ContrastRatio(kBlack, kWhite), 21);
    EXPECT_DOUBLE_EQ(ContrastRatio(kWhite, kBlack), 21);
    EXPECT_DOUBLE_EQ(ContrastRatio({90, 120, 7}, {90, 120, 7}), 1);
    EXPECT_NEAR(ContrastRatio({0x76, 0x76, 0x76}, kWhite), 4.54, 0.01);
}

TEST(LabelColours, AreDarkOnALightSumAndLightOnADarkOne) {
    EXPECT_EQ(LabelColoursOn({128, 128, 128}).Text, kBlack);
    EXPECT_EQ(LabelColoursOn({255, 129, 0}).Text, kBlack);
    EXPECT_EQ(LabelColoursOn({255, 128, 0}).Text, kWhite);
    EXPECT_EQ(LabelColoursOn({127, 128, 128}).Text, kWhite);
}

TEST(LabelColours, CountAComponentAsLightFromHalfWay) {
    EXPECT_EQ(LabelColoursOn({128, 127, 200}).Caption, (Colour{0, 80, 0}));
    EXPECT_EQ(LabelColoursOn({128, 127, 0}).Caption, (Colour{190, 255, 255}));
}

TEST(LabelColours, LeaveThePlateInTheFramesColourWhereThatIsReadable) {
    EXPECT_EQ(LabelColoursOn({20, 40, 90}).Plate, (Colour{20, 40, 90}));
    EXPECT_NE(LabelColoursOn({0, 200, 0}).Plate, (Colour{0, 200, 0}));
}

TEST(LabelColours, GiveThePlateTheFramesTint) {
    const Colour plate = LabelColoursOn({10, 200, 90}).Plate;
    EXPECT_NE(plate, (Colour{10, 200, 90}));
    EXPECT_LT(plate.Red, plate.Blue);
    EXPECT_LT(plate.Blue, plate.Green);
}

constexpr int kCodes = 52 * 52 * 52;

// From black (0) to white (the last).
Colour FrameColour(int code) {
    const auto component = [](int part) { return static_cast<std::uint8_t>(part % 52 * 5); };
    return {component(code), component(code / 52), component(code / 52 / 52)};
}

TEST(LabelColours, AreReadableOnEveryFrameColour) {
    for (int code = 0; code < kCodes; ++code) {
        const LabelColours labels = LabelColoursOn(FrameColour(code));
        ASSERT_GE(ContrastRatio(labels.Text, labels.Plate), 7) << code;
        ASSERT_GE(ContrastRatio(labels.Caption, labels.Plate), 7) << code;
    }
}

TEST(BorderColour, StandsOutFromThePlateOnEveryFrameColour) {
    for (int code = 0; code < kCodes; ++code) {
        const Colour frame = FrameColour(code);
        const Colour plate = LabelColoursOn(frame).Plate;
        ASSERT_GE(ContrastRatio(BorderColourOn(frame, plate), plate), 2) << code;
    }
}

TEST(BorderColour, IsTheFramesOwnWhereThatStandsOut) {
    constexpr Colour kGreen{0, 200, 0};
    EXPECT_EQ(BorderColourOn(kGreen, LabelColoursOn(kGreen).Plate), kGreen);
}

TEST(BorderColour, IsATintOfADarkFrameAndAShadeOfALightOne) {
    constexpr Colour kNavy{14, 34, 70};
    const Colour lighter = BorderColourOn(kNavy, kNavy);
    EXPECT_GT(lighter.Red, kNavy.Red);
    EXPECT_LT(lighter.Red, lighter.Green);
    EXPECT_LT(lighter.Green, lighter.Blue);
    constexpr Colour kLime{200, 220, 60};
    const Colour darker = BorderColourOn(kLime, kLime);
    EXPECT_LT(darker.Green, kLime.Green);
    EXPECT_LT(darker.Blue, darker.Red);
    EXPECT_LT(darker.Red, darker.Green);
    // No more than it takes.
    EXPECT_LT(ContrastRatio(lighter, kNavy), 2.3);
    EXPECT_LT(ContrastRatio(darker, kLime), 2.3);
}

}  // namespace
}  // namespace ambrio
