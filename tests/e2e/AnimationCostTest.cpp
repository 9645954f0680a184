// What the animation costs once the run is over.

#include <gtest/gtest.h>

#include "tests/e2e/support/Holdings.h"
#include "tests/e2e/support/ProgramTest.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

// Asks for a step as the form's own timer does, and waits until it is done.
constexpr WPARAM kAnimationTimer = 2;

void StepAnimation(const WindowProbe& form, int steps) {
    for (int i = 0; i < steps; ++i) {
        if (!form.Send(WM_TIMER, kAnimationTimer)) {
            throw std::runtime_error("the form does not answer");
        }
    }
}

class AnimationCost : public ProgramTest {
  protected:
    // What the saver holds before and after ten thousand steps, the buffers and lists having grown
    // to their size.
    struct Change {
        Holdings Before;
        Holdings After;
    };

    Change OverTenThousandSteps() {
        Start(L"/S");
        const WindowProbe form = WindowTitled(L"Ambrio Screen Saver");
        Change change;
        StepAnimation(form, 3000);
        change.Before = HoldingsOf(Program().ProcessId());
        StepAnimation(form, 10000);
        change.After = HoldingsOf(Program().ProcessId());
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(Ends());
        return change;
    }
};

TEST_F(AnimationCost, TakesNoMoreMemoryAndHandlesAfterTenThousandSteps) {
    const Change change = OverTenThousandSteps();
    constexpr SIZE_T kTolerance = SIZE_T{512} * 1024;
    EXPECT_GT(change.Before.PrivateBytes, kTolerance) << "nothing was measured";
    EXPECT_LE(change.After.PrivateBytes, change.Before.PrivateBytes + kTolerance);
    EXPECT_GT(change.Before.Handles, 0U) << "nothing was measured";
    EXPECT_LE(change.After.Handles, change.Before.Handles + 4);
}

TEST_F(AnimationCost, HoldsNoMoreThingsToDrawWithAfterTenThousandSteps) {
    if (RunsOnWine()) {
        GTEST_SKIP() << "Wine does not count another process's windows, pens and bitmaps";
    }
    const Change change = OverTenThousandSteps();
    EXPECT_GT(change.Before.UserHandles, 0U) << "nothing was measured";
    EXPECT_LE(change.After.GdiHandles, change.Before.GdiHandles + 4);
    EXPECT_LE(change.After.UserHandles, change.Before.UserHandles + 4);
}

}  // namespace
}  // namespace ambrio::e2e
