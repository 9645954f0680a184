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

TEST(WindingDown, SlowsDownBeforeTheTimeAndStandsStillFromItOn) {
    EXPECT_EQ(PaceAfter(400, kMinuteToSleep), 1);
    EXPECT_NEAR(PaceAfter(500, kMinuteToSleep), 0.5, 1e-9);
    EXPECT_GT(PaceAfter(599, kMinuteToSleep), 0);
    EXPECT_EQ(PaceAfter(600, kMinuteToSleep), 0);
    EXPECT_EQ(PaceAfter(5000, kMinuteToSleep), 0);
}

TEST(WindingDown, CountsSecondsFromTheIntervalAndNotSteps) {
    AnimationInputs inputs = kMinuteToSleep;
    inputs.Interval = 250;
    EXPECT_GT(PaceAfter(239, inputs), 0);
    EXPECT_EQ(PaceAfter(240, inputs), 0);
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

TEST(WindingDown, StandsStillAtOnceWithoutAnyTime) {
    AnimationInputs inputs = kMinuteToSleep;
    inputs.PowerSaveTimeout = 0;
    EXPECT_EQ(PaceAfter(1, inputs), 0);
}

}  // namespace
}  // namespace ambrio
