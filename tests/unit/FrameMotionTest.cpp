#include "saver/animation/FrameMotion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/support/RecordingFrame.h"

namespace ambrio {
namespace {

constexpr std::int32_t kLongestStep = 45;  // twips

struct Reach {
    std::int32_t Leftmost = INT32_MAX;
    std::int32_t Rightmost = INT32_MIN;
    std::int32_t Highest = INT32_MAX;
    std::int32_t Lowest = INT32_MIN;
};

// Where ten thousand steps take the frame's top left corner.
Reach Wander(RecordingFrame& frame, std::int16_t pixelTwips) {
    Random random(7);
    FrameMotion motion(frame, pixelTwips, pixelTwips, random);
    Reach reach;
    for (int i = 0; i < 10000; ++i) {
        motion.Step(frame, 1);
        reach.Leftmost = std::min(reach.Leftmost, frame.Left());
        reach.Rightmost = std::max(reach.Rightmost, frame.Left());
        reach.Highest = std::min(reach.Highest, frame.Top());
        reach.Lowest = std::max(reach.Lowest, frame.Top());
    }
    return reach;
}

struct Case {
    const char* Name;
    RecordingFrame::Size Frame;
    RecordingFrame::Size Form;
    std::int16_t PixelTwips;
};

class FrameMotionOn : public testing::TestWithParam<Case> {};

TEST_P(FrameMotionOn, StaysInsideAndTurnsAtEveryEdge) {
    const Case& c = GetParam();
    RecordingFrame frame(c.Frame, c.Form);
    const Reach reach = Wander(frame, c.PixelTwips);
    const std::int32_t roomAcross = c.Form.Width - c.Frame.Width;
    const std::int32_t roomDown = c.Form.Height - c.Frame.Height;
    // A frame larger than the form has its room on the other side of the corner.
    const auto turnsAt = [](std::int32_t edge, std::int32_t turn, bool inside) {
        return inside && std::abs(edge - turn) <= kLongestStep;
    };
    const std::int32_t lowestLeft = std::min(roomAcross, 0);
    const std::int32_t lowestTop = std::min(roomDown, 0);
    const std::int32_t highestLeft = std::max(roomAcross, 0);
    const std::int32_t highestTop = std::max(roomDown, 0);
    EXPECT_TRUE(turnsAt(lowestLeft, reach.Leftmost, reach.Leftmost >= lowestLeft));
    EXPECT_TRUE(turnsAt(highestLeft, reach.Rightmost, reach.Rightmost <= highestLeft));
    EXPECT_TRUE(turnsAt(lowestTop, reach.Highest, reach.Highest >= lowestTop));
    EXPECT_TRUE(turnsAt(highestTop, reach.Lowest, reach.Lowest <= highestTop));
}

INSTANTIATE_TEST_SUITE_P(Forms, FrameMotionOn,
                         testing::Values(Case{"Screen", kPanelSize, kFormSize, 15},
                                         Case{"Preview", {1500, 480}, {2280, 1680}, 15},
                                         Case{"HighDpi", {1500, 480}, {2277, 1683}, 10},
                                         Case{"SmallerForm", kPanelSize, {3000, 1500}, 15},
                                         Case{"Narrower", kPanelSize, {3000, 11520}, 15},
                                         Case{"SameSize", kPanelSize, kPanelSize, 15},
                                         Case{"NoForm", kPanelSize, {0, 0}, 15}),
                         [](const auto& tested) { return tested.param.Name; });

TEST(FrameMotion, StartsWhereTheFrameIs) {
    RecordingFrame frame(kPanelSize, kFormSize);
    frame.Move(4500, 3000);
    Random random(1);
    FrameMotion motion(frame, 15, 15, random);
    motion.Step(frame, 1);
    EXPECT_NEAR(frame.Left(), 4500, 45);
    EXPECT_NEAR(frame.Top(), 3000, 45);
}

// The way that one step takes the frame, in twips, on a form of this size.
double Stride(RecordingFrame::Size form) {
    constexpr int kSteps = 20;
    RecordingFrame frame({100, 100}, form);
    const std::int32_t middle = std::min(form.Width, form.Height) / 2;
    frame.Move(middle, middle);
    Random random(11);
    FrameMotion motion(frame, 1, 1, random);
    for (int i = 0; i < kSteps; ++i) {
        motion.Step(frame, 1);
    }
    return std::hypot(frame.Left() - middle, frame.Top() - middle) / kSteps;
}

TEST(FrameMotion, CrossesFormsOfAnySizeInLikeTimesButIsNeitherHastyNorStill) {
    EXPECT_NEAR(Stride({15360, 11520}), 11520 / 450.0, 0.2);
    EXPECT_NEAR(Stride({9000, 12000}), 9000 / 450.0, 0.2);
    EXPECT_NEAR(Stride({57600, 32400}), 32, 0.2);
    EXPECT_NEAR(Stride({2280, 1680}), 10, 0.2);
}

TEST(FrameMotion, LiesOnWholePixels) {
    RecordingFrame frame({1500, 480}, {1500 + 300, 480 + 450});
    Random random(13);
    FrameMotion motion(frame, 15, 15, random);
    for (int i = 0; i < 500; ++i) {
        motion.Step(frame, 1);
        ASSERT_EQ(frame.Left() % 15, 0) << i;
        ASSERT_EQ(frame.Top() % 15, 0) << i;
    }
}

TEST(FrameMotion, MovesByAFewPixelsAtEveryStep) {
    RecordingFrame frame(kPanelSize, kFormSize);
    Random random(3);
    FrameMotion motion(frame, 15, 15, random);
    for (int i = 0; i < 2000; ++i) {
        const std::int32_t left = frame.Left();
        const std::int32_t top = frame.Top();
        motion.Step(frame, 1);
        const std::int32_t way = std::abs(frame.Left() - left) + std::abs(frame.Top() - top);
        ASSERT_GT(way, 0) << i;
        ASSERT_LE(way, 60) << i;
    }
}

TEST(FrameMotion, ReturnsIntoAFormThatShrinksEvenWhenStandingStill) {
    RecordingFrame frame(kPanelSize, kFormSize);
    frame.Move(9000, 8000);
    Random random(1);
    FrameMotion motion(frame, 15, 15, random);
    motion.Step(frame, 0);
    EXPECT_EQ(frame.Calls, 2) << "moved once to the whole pixel";
    frame.ResizeForm({9000, 6000});
    motion.Step(frame, 0);
    EXPECT_EQ(frame.Left(), 9000 - kPanelSize.Width);
    EXPECT_EQ(frame.Top(), 6000 - kPanelSize.Height);
}

}  // namespace
}  // namespace ambrio
