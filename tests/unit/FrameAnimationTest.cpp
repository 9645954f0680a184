#include "saver/animation/FrameAnimation.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace ambrio
