#include "saver/animation/FrameAnimation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

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
        ASSERT_GE(ContrastRatio(frame.Labels.Text, frame.Labels.Plate), 7);
        ASSERT_GE(ContrastRatio(frame.Labels.Caption, frame.Labels.Plate), 7);
    }
}

TEST(FrameAnimation, RestsWhenTheDisplayIsToSleepButForOneMoveASecond) {
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
    EXPECT_FALSE(animation.IsAtRest());
    int moves = 0;
    for (int i = 0; i < 1000; ++i) {
        const int calls = frame.Calls;
        animation.Step(frame, inputs);
        moves += frame.Calls > calls ? 1 : 0;
        const int drawn = frame.Calls;
        animation.Glide(frame, 0.5);
        ASSERT_EQ(frame.Calls, drawn) << "nothing is drawn between steps";
    }
    EXPECT_TRUE(animation.IsAtRest());
    EXPECT_NEAR(moves, 100, 1);
}

// A display that stays on all the same must not be burned into: no string and no place of the frame
// lasts longer than a minute.
TEST(FrameAnimation, LeavesNothingInItsPlaceForAMinuteEvenAtRest) {
    RecordingFrame frame(kPanelSize, {28800, 16200});
    FrameAnimation animation(4);
    const AnimationInputs inputs{.RunFinished = true, .PowerSaveActive = true};
    struct Sight {
        int Since;
        Glow Light;
    };
    std::map<std::uint32_t, Sight> seen;
    int left = -1;
    int leftSince = 0;
    for (int step = 0; step < 6000; ++step) {
        animation.Step(frame, inputs);
        for (const Line& line : frame.Lines) {
            Sight& sight = seen.try_emplace(line.Key, Sight{step, line.Light}).first->second;
            if (sight.Light != line.Light) {
                sight = {step, line.Light};
            }
            ASSERT_LT(step - sight.Since, 600) << line.Key;
        }
        if (left != frame.Left()) {
            left = frame.Left();
            leftSince = step;
        }
        ASSERT_LT(step - leftSince, 100);
    }
    EXPECT_GT(seen.size(), 2000U);
}

// What is there to see, whichever pictures it is told to draw.
struct Seen {
    std::int32_t Left;
    std::int32_t Top;
    std::vector<Line> Lines;

    bool operator==(const Seen&) const = default;
};
Seen SeenOn(const RecordingFrame& frame) {
    return {frame.Left(), frame.Top(), frame.Lines};
}

TEST(FrameAnimation, GlidesFromStepToStep) {
    // Twips as pixels, so that the least move is seen.
    const AnimationInputs fine{.PixelTwipsX = 1, .PixelTwipsY = 1};
    RecordingFrame stepped(kPanelSize, kFormSize);
    RecordingFrame gliding(kPanelSize, kFormSize);
    FrameAnimation one(5);
    FrameAnimation other(5);
    for (int step = 0; step < 300; ++step) {
        one.Step(stepped, fine);
        other.Step(gliding, fine);
        if (step == 0) {
            ASSERT_EQ(SeenOn(stepped), SeenOn(gliding));
        }
        const Seen before = SeenOn(gliding);
        other.Glide(gliding, 0.3);
        EXPECT_NE(before, SeenOn(gliding)) << step;
        const Seen between = SeenOn(gliding);
        other.Glide(gliding, 0.3);
        EXPECT_EQ(between, SeenOn(gliding)) << "the same moment once more";
        other.Glide(gliding, 0.7);
        EXPECT_NE(between, SeenOn(gliding)) << step;
        // Glides show what lies ahead, and never more than the way to the next step.
        EXPECT_LE(std::abs(gliding.Left() - stepped.Left()), 45) << step;
        other.Glide(gliding, 17);
        const Seen atEnd = SeenOn(gliding);
        other.Glide(gliding, 18);
        EXPECT_EQ(atEnd, SeenOn(gliding)) << "the step is waited for";
    }
    EXPECT_NEAR(gliding.Left(), stepped.Left(), 60);
    EXPECT_NEAR(gliding.Top(), stepped.Top(), 60);
}

// One picture shows both, as each costs its time.
TEST(FrameAnimation, LeavesTheDrawingOfAStepToTheNextGlide) {
    RecordingFrame frame(kPanelSize, kFormSize);
    FrameAnimation animation(5);
    animation.Step(frame, {});
    animation.Step(frame, {});
    const auto strings = [&frame] { return frame.Lines.back().Key; };
    animation.Glide(frame, 0.5);
    const std::vector<Line> before = frame.Lines;
    animation.Step(frame, {});
    EXPECT_EQ(before, frame.Lines);
    animation.Glide(frame, 0.5);
    EXPECT_NE(before, frame.Lines);
    const std::uint32_t last = strings();
    for (int step = 0; step < 40; ++step) {
        animation.Step(frame, {});
        animation.Glide(frame, 0.4);
    }
    EXPECT_NEAR(strings() - last, 100, 2) << "as many as without glides";
    animation.Step(frame, {});
    const std::uint32_t withoutGlide = strings();
    animation.Step(frame, {});
    EXPECT_GT(strings(), withoutGlide) << "without glides each step draws again";
}

TEST(FrameAnimation, DoesNotGlideBeforeItsFirstStep) {
    RecordingFrame frame(kPanelSize, kFormSize);
    FrameAnimation animation(5);
    animation.Glide(frame, 0.5);
    EXPECT_EQ(frame.Calls, 0);
    EXPECT_FALSE(animation.IsAtRest());
}

TEST(FrameAnimation, KeepsTheColoursOfLinesToThoseOfTheFrame) {
    RecordingFrame frame(kPanelSize, kFormSize);
    FrameAnimation animation(5);
    animation.Step(frame, {});
    EXPECT_EQ(frame.LineColours, ColourFamily(frame.BackColor).Current());
    Palette before = frame.LineColours;
    int changes = 0;
    for (int step = 0; step < 600; ++step) {
        animation.Step(frame, {});
        changes += frame.LineColours == before ? 0 : 1;
        before = frame.LineColours;
    }
    EXPECT_GT(changes, 30);
    EXPECT_LE(changes, 120);
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
        EXPECT_GE(area.Left, 0) << size.Width;
        EXPECT_GE(area.Top, 0) << size.Width;
        EXPECT_LE(area.Right, size.Width);
        EXPECT_LE(area.Bottom, size.Height);
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
    for (int i = 0; i < 5; ++i) {
        animation.Step(frame, inputs);
    }
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
