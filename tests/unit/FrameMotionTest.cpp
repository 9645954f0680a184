#include "saver/animation/FrameMotion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "platform/Rounding.h"
#include "platform/Twips.h"
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

// Two monitors beside each other, one of them lower; a form that also covers the two corners that
// nobody sees, and more to the right.
const std::vector<Area> kMonitors{{0, 0, 15360, 11520}, {15360, 5000, 34560, 15800}};

bool IsSeenWhole(const RecordingFrame& frame, const std::vector<Area>& areas) {
    std::int64_t seen = 0;
    for (const Area& part :
         PartsInside(areas, {frame.Left(), frame.Top(), frame.Left() + frame.Width(),
                             frame.Top() + frame.Height()})) {
        seen += std::int64_t{part.Right - part.Left} * (part.Bottom - part.Top);
    }
    return seen == std::int64_t{frame.Width()} * frame.Height();
}

TEST(FrameMotion, IsSeenWholeOnMonitorsOfDifferentSizesAndGoesToAllOfThem) {
    RecordingFrame frame(kPanelSize, {60000, 40000});
    frame.See(kMonitors);
    Random random(11);
    FrameMotion motion(frame, 15, 15, random);
    Reach reach;
    for (int i = 0; i < 40000; ++i) {
        const std::int32_t left = frame.Left();
        motion.Step(frame, 1);
        ASSERT_TRUE(IsSeenWhole(frame, kMonitors)) << frame.Left() << ", " << frame.Top();
        ASSERT_LE(std::abs(frame.Left() - left), 60) << "a leap";
        reach.Rightmost = std::max(reach.Rightmost, frame.Left());
        reach.Lowest = std::max(reach.Lowest, frame.Top());
    }
    EXPECT_GE(reach.Rightmost, 34560 - kPanelSize.Width - kLongestStep);
    EXPECT_GE(reach.Lowest, 15800 - kPanelSize.Height - kLongestStep);
}

TEST(FrameMotion, ComesBackFromAMonitorThatHasGone) {
    RecordingFrame frame(kPanelSize, {60000, 40000});
    frame.See(kMonitors);
    frame.Move(25000, 9000);
    Random random(1);
    FrameMotion motion(frame, 15, 15, random);
    motion.Step(frame, 1);
    EXPECT_NEAR(frame.Left(), 25000, 45);
    frame.See({kMonitors.front()});
    motion.Step(frame, 1);
    motion.Step(frame, 1);
    EXPECT_TRUE(IsSeenWhole(frame, {kMonitors.front()})) << frame.Left() << ", " << frame.Top();
}

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
    EXPECT_NEAR(Stride({15360, 11520}), 11520 / 640.0, 0.2);
    EXPECT_NEAR(Stride({9000, 12000}), 9000 / 640.0, 0.2);
    EXPECT_NEAR(Stride({57600, 32400}), 22, 0.2);
    EXPECT_NEAR(Stride({2280, 1680}), 10, 0.2);
}

TEST(FrameMotion, IsNotMovedForLessThanAPixel) {
    RecordingFrame frame({1500, 480}, {1500 + 300, 480 + 450});
    Random random(13);
    FrameMotion motion(frame, 15, 15, random);
    int moves = 0;
    for (int i = 0; i < 500; ++i) {
        const std::int32_t left = frame.Left();
        const std::int32_t top = frame.Top();
        motion.Step(frame, 0.3);
        const std::int32_t way =
            std::max(std::abs(frame.Left() - left), std::abs(frame.Top() - top));
        ASSERT_TRUE(way == 0 || way >= 15) << i;
        moves += way > 0 ? 1 : 0;
    }
    EXPECT_GT(moves, 50);
}

TEST(FrameMotion, MovesByAPixelOrTwoAtEveryOtherStep) {
    RecordingFrame frame(kPanelSize, kFormSize);
    Random random(3);
    FrameMotion motion(frame, 15, 15, random);
    for (int i = 0; i < 2000; ++i) {
        const std::int32_t left = frame.Left();
        const std::int32_t top = frame.Top();
        motion.Step(frame, 1);
        motion.Step(frame, 1);
        const std::int32_t way = std::abs(frame.Left() - left) + std::abs(frame.Top() - top);
        ASSERT_GT(way, 0) << i;
        ASSERT_LE(way, 90) << i;
    }
}

// What the panel's own rounding to pixels leaves, and that to twips, of a way that is a number of
// pixels and a part of one. At these resolutions a pixel is no whole number of twips.
TEST(FrameMotion, StepsByNoMoreThanAPixelFromItsPaceAtEveryResolution) {
    for (const int dotsPerInch : {96, 120, 144, 168, 192, 216}) {
        const double twips = TwipsPerPixel(dotsPerInch);
        RecordingFrame frame(kPanelSize, {static_cast<std::int32_t>(3840 * twips),
                                          static_cast<std::int32_t>(2160 * twips)});
        Random random(5);
        FrameMotion motion(frame, RoundToInt16(twips), RoundToInt16(twips), random);
        std::vector<int> places;
        for (int i = 0; i < 3000; ++i) {
            motion.Step(frame, 1);
            places.push_back(PixelsFromTwips(frame.Left(), twips));
        }
        int straight = 0;
        for (std::size_t i = 20; i + 20 < places.size(); ++i) {
            // The middle of a way without a turn, which is straight but for its sway.
            const std::span around(&places[i - 20], 41);
            const auto way = std::minmax_element(around.begin(), around.end());
            const int across = places[i + 20] - places[i - 20];
            if (std::abs(across) == *way.second - *way.first) {
                ++straight;
                ASSERT_NEAR(places[i + 1] - places[i], across / 40.0, 1.2) << dotsPerInch;
            }
        }
        EXPECT_GT(straight, 2000) << dotsPerInch;
    }
}

TEST(FrameMotion, ReturnsIntoAFormThatShrinksEvenWhenStandingStill) {
    RecordingFrame frame(kPanelSize, kFormSize);
    frame.Move(9000, 8000);
    Random random(1);
    FrameMotion motion(frame, 15, 15, random);
    motion.Step(frame, 0);
    EXPECT_EQ(frame.Calls, 1) << "moved without need";
    frame.ResizeForm({9000, 6000});
    motion.Step(frame, 0);
    EXPECT_EQ(frame.Left(), 9000 - kPanelSize.Width);
    EXPECT_EQ(frame.Top(), 6000 - kPanelSize.Height);
}

}  // namespace
}  // namespace ambrio
