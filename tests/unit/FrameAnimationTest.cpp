#include "saver/animation/FrameAnimation.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "saver/animation/Contrast.h"
#include "tests/support/RecordingFrame.h"

namespace ambrio {
namespace {

RecordingFrame Animated(std::uint32_t seed, int steps) {
    RecordingFrame frame(kPanelSize, kFormSize);
    FrameAnimation animation(seed);
    for (int i = 0; i < steps; ++i) {
        animation.Step(frame, {});
    }
    return frame;
}

TEST(FrameAnimation, ColoursMovesAndDrawsWithItsFirstStep) {
    const RecordingFrame frame = Animated(1, 1);
    EXPECT_NE(frame.BackColor, Colour{});
    EXPECT_NE(frame.Labels, LabelColours{});
    EXPECT_NE(frame.Left() + frame.Top(), 0);
    EXPECT_FALSE(frame.Lines.empty());
}

TEST(FrameAnimation, ChangesItsColourTwiceASecond) {
    RecordingFrame frame(kPanelSize, kFormSize);
    FrameAnimation animation(5);
    int changes = 0;
    for (int step = 0; step < 500; ++step) {
        const Colour before = frame.BackColor;
        animation.Step(frame, {});
        if (frame.BackColor != before) {
            ++changes;
            EXPECT_TRUE(step == 0 || step % 5 == 4) << step;
        }
    }
    EXPECT_GT(changes, 80);
}

TEST(FrameAnimation, LooksTheSameWithTheSameSeedAndDifferentWithAnother) {
    const RecordingFrame one = Animated(1, 300);
    EXPECT_EQ(one.Lines, Animated(1, 300).Lines);
    EXPECT_EQ(one.BackColor, Animated(1, 300).BackColor);
    EXPECT_NE(one.Lines, Animated(2, 300).Lines);
    EXPECT_NE(one.BackColor, Animated(2, 300).BackColor);
}

TEST(FrameAnimation, KeepsFrameInsideAndLabelsReadableOverTenThousandSteps) {
    RecordingFrame frame(kPanelSize, kFormSize);
    FrameAnimation animation(3);
    for (int i = 0; i < 10000; ++i) {
        animation.Step(frame, {});
        ASSERT_GE(frame.Left(), 0);
        ASSERT_GE(frame.Top(), 0);
        ASSERT_LE(frame.Left() + frame.Width(), kFormSize.Width);
        ASSERT_LE(frame.Top() + frame.Height(), kFormSize.Height);
        ASSERT_EQ(frame.Labels, LabelColoursOn(frame.BackColor));
        ASSERT_GE(ContrastRatio(frame.Labels.Text, frame.Labels.Plate), 4.5);
        ASSERT_GE(ContrastRatio(frame.Labels.Caption, frame.Labels.Plate), 4.5);
    }
}

TEST(FrameAnimation, StandsStillWhenTheDisplayIsToSleep) {
    RecordingFrame frame(kPanelSize, kFormSize);
    FrameAnimation animation(4);
    AnimationInputs inputs;
    inputs.PowerSaveActive = true;
    inputs.PowerSaveTimeout = 30;
    for (int i = 0; i < 500; ++i) {
        animation.Step(frame, inputs);
    }
    inputs.RunFinished = true;
    for (int i = 0; i < 299; ++i) {
        const int before = frame.Calls;
        animation.Step(frame, inputs);
        ASSERT_GT(frame.Calls, before) << i;
    }
    const int calls = frame.Calls;
    for (int i = 0; i < 1000; ++i) {
        animation.Step(frame, inputs);
    }
    EXPECT_EQ(frame.Calls, calls);
}

// The smallest area that holds all ends of lines.
Area AreaOf(const std::vector<Line>& lines) {
    Area area{INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};
    for (const Line& line : lines) {
        for (const float x : {line.FromX, line.ToX}) {
            area.Left = std::min(area.Left, static_cast<std::int32_t>(x));
            area.Right = std::max(area.Right, static_cast<std::int32_t>(x));
        }
        for (const float y : {line.FromY, line.ToY}) {
            area.Top = std::min(area.Top, static_cast<std::int32_t>(y));
            area.Bottom = std::max(area.Bottom, static_cast<std::int32_t>(y));
        }
    }
    return area;
}

TEST(FrameAnimation, MovesItsFiguresToAFormOfAnotherSizeAsFarAsTheyAreWoven) {
    const RecordingFrame::Size sizes[] = {{7680, 5760}, {30720, 23040}, {28800, 11520}, kFormSize};
    for (const RecordingFrame::Size& size : sizes) {
        RecordingFrame frame(kPanelSize, kFormSize);
        FrameAnimation animation(6);
        for (int i = 0; i < 400; ++i) {
            animation.Step(frame, {});
        }
        const auto before = static_cast<double>(frame.Lines.size());
        frame.ResizeForm(size);
        animation.Step(frame, {});
        EXPECT_GE(static_cast<double>(frame.Lines.size()), before * 0.9) << size.Width;
        const Area area = AreaOf(frame.Lines);
        // A figure may lie a little over an edge.
        EXPECT_GE(area.Left, -size.Width / 12) << size.Width;
        EXPECT_GE(area.Top, -size.Height / 12) << size.Width;
        EXPECT_LE(area.Right, size.Width * 13 / 12);
        EXPECT_LE(area.Bottom, size.Height * 13 / 12);
        EXPECT_GE(area.Bottom - area.Top, size.Height / 2);
    }
}

TEST(FrameAnimation, UsesTheWholeWidthOfAFormThatHasBecomeWider) {
    RecordingFrame frame(kPanelSize, {11520, 11520});
    FrameAnimation animation(6);
    for (int i = 0; i < 400; ++i) {
        animation.Step(frame, {});
    }
    frame.ResizeForm({46080, 11520});
    for (int i = 0; i < 200; ++i) {
        animation.Step(frame, {});
    }
    EXPECT_GE(AreaOf(frame.Lines).Right, 46080 * 3 / 4);
}

TEST(FrameAnimation, DrawsItsFiguresWhereTheyCanBeSeen) {
    RecordingFrame frame(kPanelSize, {60000, 11520});
    frame.See({{0, 0, 15360, 8000}, {15360, 0, 20000, 11520}});
    FrameAnimation animation(8);
    for (int i = 0; i < 400; ++i) {
        animation.Step(frame, {});
    }
    EXPECT_LE(AreaOf(frame.Lines).Right, 20000);
    EXPECT_GE(AreaOf(frame.Lines).Right, 15000);
}

TEST(FrameAnimation, FollowsItsFormEvenWhenItStandsStill) {
    RecordingFrame frame(kPanelSize, kFormSize);
    FrameAnimation animation(4);
    AnimationInputs inputs;
    animation.Step(frame, inputs);
    for (int i = 0; i < 300; ++i) {
        animation.Step(frame, inputs);
    }
    inputs = {.RunFinished = true, .PowerSaveActive = true};
    animation.Step(frame, inputs);
    const std::size_t before = frame.Lines.size();
    frame.ResizeForm({9000, 7000});
    frame.Lines.clear();
    animation.Step(frame, inputs);
    EXPECT_EQ(before, frame.Lines.size());
    EXPECT_LE(AreaOf(frame.Lines).Right, 9000);
    frame.Lines.clear();
    animation.Step(frame, inputs);
    EXPECT_TRUE(frame.Lines.empty()) << "drawn again for nothing";
}

}  // namespace
}  // namespace ambrio
