#include "saver/animation/WindingDown.h"

#include <gtest/gtest.h>

#include "saver/animation/FrameAnimation.h"

namespace ambrio {
namespace {

double PaceAfter(int steps, const AnimationInputs& inputs) {
    WindingDown winding;
    double pace = -1;
    for (int i = 0; i < steps; ++i) {
        pace = winding.Pace(inputs);
    }
    return pace;
}

constexpr AnimationInputs kMinuteToSleep{true, true, 60, 100, 15, 15};

TEST(WindingDown, NeverBeginsWithoutPowerSavingOrDuringTheRun) {
    AnimationInputs inputs = kMinuteToSleep;
    inputs.PowerSaveActive = false;
    EXPECT_EQ(PaceAfter(100000, inputs), 1);
    inputs = kMinuteToSleep;
    inputs.RunFinished = false;
    EXPECT_EQ(PaceAfter(100000, inputs), 1);
}

TEST(WindingDown, SlowsDownBeforeTheTimeAndRestsFromItOn) {
    EXPECT_EQ(PaceAfter(400, kMinuteToSleep), 1);
    EXPECT_NEAR(PaceAfter(500, kMinuteToSleep), 0.5, 1e-9);
    EXPECT_GT(PaceAfter(599, kMinuteToSleep), 0);
    EXPECT_LT(PaceAfter(599, kMinuteToSleep), 0.01);
    EXPECT_EQ(PaceAfter(601, kMinuteToSleep), 0);
    EXPECT_EQ(PaceAfter(5001, kMinuteToSleep), 0);
}

TEST(WindingDown, MovesOnOnceASecondAtRest) {
    for (const std::int32_t interval : {100, 250, 300, 1000}) {
        AnimationInputs inputs = kMinuteToSleep;
        inputs.Interval = interval;
        WindingDown winding;
        int milliseconds = 0;
        int moves = 0;
        double way = 0;
        while (milliseconds < 660000) {
            const double pace = winding.Pace(inputs);
            milliseconds += interval;
            EXPECT_EQ(winding.IsAtRest(), milliseconds >= 60000);
            moves += winding.IsAtRest() && pace > 0 ? 1 : 0;
            way += winding.IsAtRest() ? pace : 0;
        }
        EXPECT_NEAR(moves, 600, 2) << interval;
        EXPECT_NEAR(way, 900, 5) << interval;
    }
}

TEST(WindingDown, WakesUpWithTheNextRun) {
    WindingDown winding;
    AnimationInputs inputs = kMinuteToSleep;
    inputs.PowerSaveTimeout = 0;
    EXPECT_FALSE(winding.IsAtRest());
    EXPECT_GE(winding.Pace(inputs), 0);
    EXPECT_TRUE(winding.IsAtRest());
    inputs.RunFinished = false;
    EXPECT_EQ(winding.Pace(inputs), 1);
    EXPECT_FALSE(winding.IsAtRest());
}

TEST(WindingDown, CountsSecondsFromTheIntervalAndNotSteps) {
    AnimationInputs inputs = kMinuteToSleep;
    inputs.Interval = 250;
    EXPECT_GT(PaceAfter(239, inputs), 0);
    EXPECT_EQ(PaceAfter(241, inputs), 0);
}

TEST(WindingDown, BeginsAtTheEndOfTheRun) {
    WindingDown winding;
    AnimationInputs inputs = kMinuteToSleep;
    inputs.RunFinished = false;
    for (int i = 0; i < 10000; ++i) {
        ASSERT_EQ(winding.Pace(inputs), 1);
    }
    inputs.RunFinished = true;
    EXPECT_EQ(winding.Pace(inputs), 1);
}

TEST(WindingDown, RestsAtOnceWithoutAnyTime) {
    AnimationInputs inputs = kMinuteToSleep;
    inputs.PowerSaveTimeout = 0;
    EXPECT_EQ(PaceAfter(1, inputs), 0);
}

}  // namespace
}  // namespace ambrio
