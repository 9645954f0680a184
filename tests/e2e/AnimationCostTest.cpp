// What the animation costs once the run is over.

#include <gtest/gtest.h>

#include "tests/e2e/support/Handles.h"
#include "tests/e2e/support/ProgramTest.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

// Asks for a step as the form's own timer does, and waits until it is done.
constexpr WPARAM kKeepOnRunninTimer = 2;

void StepAnimation(const WindowProbe& form, int steps) {
    for (int i = 0; i < steps; ++i) {
        if (!form.Send(WM_TIMER, kKeepOnRunninTimer)) {
            throw std::runtime_error("the form does not answer");
        }
    }
}

struct Holdings {
    DWORD GdiHandles = 0;
    DWORD UserHandles = 0;
    DWORD Handles = 0;
    SIZE_T Memory = 0;  // bytes of its own
};

Holdings HoldingsOf(HANDLE process) {
    Holdings holdings;
    holdings.GdiHandles = GetGuiResources(process, GR_GDIOBJECTS);
    holdings.UserHandles = GetGuiResources(process, GR_USEROBJECTS);
    GetProcessHandleCount(process, &holdings.Handles);
    PROCESS_MEMORY_COUNTERS memory{};
    memory.cb = sizeof(memory);
    GetProcessMemoryInfo(process, &memory, memory.cb);
    holdings.Memory = memory.PagefileUsage;
    return holdings;
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
        const UniqueHandle process(
            OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, Program().ProcessId()));
        Change change;
        StepAnimation(form, 3000);
        change.Before = HoldingsOf(process.get());
        StepAnimation(form, 10000);
        change.After = HoldingsOf(process.get());
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(Ends());
        return change;
    }
};

TEST_F(AnimationCost, TakesNoMoreMemoryAfterTenThousandSteps) {
    const Change change = OverTenThousandSteps();
    constexpr SIZE_T kTolerance = SIZE_T{512} * 1024;
    EXPECT_GT(change.Before.Memory, kTolerance) << "nothing was measured";
    EXPECT_LE(change.After.Memory, change.Before.Memory + kTolerance);
}

TEST_F(AnimationCost, HoldsNoMoreHandlesAfterTenThousandSteps) {
    if (RunsOnWine()) {
        GTEST_SKIP() << "Wine does not count the handles of another process";
    }
    const Change change = OverTenThousandSteps();
    EXPECT_GT(change.Before.UserHandles, 0U) << "nothing was measured";
    EXPECT_LE(change.After.GdiHandles, change.Before.GdiHandles + 4);
    EXPECT_LE(change.After.UserHandles, change.Before.UserHandles + 4);
    EXPECT_LE(change.After.Handles, change.Before.Handles + 4);
}

}  // namespace
}  // namespace ambrio::e2e
