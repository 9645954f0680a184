// What the animation costs: time of the processor, memory, handles.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/e2e/support/Handles.h"
#include "tests/e2e/support/Holdings.h"
#include "tests/e2e/support/PreviewHost.h"
#include "tests/e2e/support/ProgramTest.h"
#include "tests/support/win32/WindowsFiles.h"

#include <tlhelp32.h>

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

using Seconds = std::chrono::duration<double>;

Seconds ProcessorTimeOf(const THREADENTRY32& entry) {
    const UniqueHandle thread(OpenThread(THREAD_QUERY_INFORMATION, FALSE, entry.th32ThreadID));
    FILETIME created, ended, kernel, user;
    if (!thread || GetThreadTimes(thread.get(), &created, &ended, &kernel, &user) == FALSE) {
        return {};  // it has ended meanwhile
    }
    const auto ticks = [](const FILETIME& time) {
        return std::chrono::duration<double, std::ratio<1, 10000000>>(
            static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime);
    };
    return ticks(kernel) + ticks(user);
}

// Of all threads, as Wine does not know the times of another process.
Seconds ProcessorTimeOf(DWORD processId) {
    const UniqueHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    Seconds time{};
    for (BOOL more = Thread32First(snapshot.get(), &entry); more != FALSE;
         more = Thread32Next(snapshot.get(), &entry)) {
        if (entry.th32OwnerProcessID == processId) {
            time += ProcessorTimeOf(entry);
        }
    }
    if (time.count() <= 0) {
        throw std::runtime_error("a program that runs has taken no time");
    }
    return time;
}

// The percentage of one processor that a program takes, while nothing but its animation is at work.
// The least of some looks: what else the machine has to do makes each of them dearer.
double ProcessorShareOf(DWORD processId, double wanted) {
    using Clock = std::chrono::steady_clock;
    constexpr Milliseconds kLook{4000};
    double least = 100;
    for (int look = 0; look < 6 && least >= wanted; ++look) {
        const auto begin = Clock::now();
        const Seconds before = ProcessorTimeOf(processId);
        std::this_thread::sleep_for(kLook);
        const Seconds spent = ProcessorTimeOf(processId) - before;
        least = std::min(least, 100 * (spent / (Clock::now() - begin)));
    }
    std::printf("%.2f %% of one processor\n", least);
    return least;
}

struct ScreenCost {
    int Width;
    int Height;
    double MostPercent;
};

// Wine 10 makes nearly twice as many system calls as Wine 8 to look for a message and to show a
// picture. More than half of the time is spent there, and more when the machine has other work.
double MostOnThisSystem(const ScreenCost& screen) {
    return screen.MostPercent + (WineVersion() > 8 ? 3 : 0);
}

class AnimationCostOn : public ProgramTest, public testing::WithParamInterface<ScreenCost> {};

TEST_P(AnimationCostOn, IsASmallShareOfOneProcessor) {
    const double most = MostOnThisSystem(GetParam());
    Start(L"/S");
    const WindowProbe form = WindowTitled(L"Ambrio Screen Saver");
    // The display of the tests is smaller than these screens; the form draws for its size.
    SetWindowPos(form.Handle(), nullptr, 0, 0, GetParam().Width, GetParam().Height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    StepAnimation(form, 1);
    const double share = ProcessorShareOf(Program().ProcessId(), most);
    EXPECT_LT(share, most);
    EXPECT_GT(share, 0) << "nothing was measured";
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Ends());
}

INSTANTIATE_TEST_SUITE_P(Screens, AnimationCostOn,
                         testing::Values(ScreenCost{1920, 1080, 3}, ScreenCost{3840, 2160, 6}),
                         [](const auto& screen) {
                             return "Of" + std::to_string(screen.param.Width) + "Columns";
                         });

TEST_F(AnimationCost, IsNextToNothingInThePreview) {
    PreviewHost host(152, 112);
    Start(L"/p " + std::to_wstring(reinterpret_cast<INT_PTR>(host.Handle())));
    ASSERT_TRUE(WaitUntil([&] { return host.Picture() != nullptr; }));
    const double share = ProcessorShareOf(Program().ProcessId(), 2);
    EXPECT_LT(share, 2);
    host.DestroyWindow();
    EXPECT_TRUE(Ends());
}

TEST_F(AnimationCost, IsNextToNothingOnceTheAnimationHasWoundDown) {
    constexpr const wchar_t* kDesktop = L"Control Panel\\Desktop";
    const RegistryValueGuard active(kDesktop, L"ScreenSavePowerOffActive");
    const RegistryValueGuard timeout(kDesktop, L"ScreenSavePowerOffTimeout");
    WriteText(kDesktop, L"ScreenSavePowerOffActive", L"1");
    WriteText(kDesktop, L"ScreenSavePowerOffTimeout", L"1");
    Start(L"/S");
    const WindowProbe form = WindowTitled(L"Ambrio Screen Saver");
    StepAnimation(form, 20);
    const double share = ProcessorShareOf(Program().ProcessId(), 0.5);
    EXPECT_LT(share, 0.5);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Ends());
}

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
