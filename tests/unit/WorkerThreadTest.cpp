#include "platform/win32/system/WorkerThread.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace ambrio {
namespace {

DWORD ThreadOf(Worker& worker, const Yield& yield) {
    DWORD thread = 0;
    worker.Do([&] { thread = GetCurrentThreadId(); }, yield);
    return thread;
}

TEST(WorkerThread, DoesEverythingOnOneOtherThread) {
    WorkerThread worker;
    const DWORD thread = ThreadOf(worker, {});
    EXPECT_NE(GetCurrentThreadId(), thread);
    EXPECT_EQ(thread, ThreadOf(worker, [] {}));
}

TEST(WorkerThread, LetsOthersInUntilTheWorkIsDone) {
    WorkerThread worker;
    const UniqueHandle mayEnd(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    int yields = 0;
    bool isDone = false;
    const auto work = [&] {
        WaitForSingleObject(mayEnd.get(), INFINITE);
        isDone = true;
    };
    // It would never end if nobody were let in meanwhile. From the third time on it may be done.
    worker.Do(work, [&] {
        if (++yields == 3) {
            EXPECT_FALSE(isDone);
            SetEvent(mayEnd.get());
        }
    });
    EXPECT_TRUE(isDone);
    EXPECT_GE(yields, 3);
}

TEST(WorkerThread, LetsInputInThatHasComeBefore) {
    WorkerThread worker;
    MSG message;
    PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    // The system counts it as looked at now.
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE));
    const UniqueHandle mayEnd(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    ULONGLONG waited = 0;
    const ULONGLONG start = GetTickCount64();
    worker.Do([&] { WaitForSingleObject(mayEnd.get(), INFINITE); },
              [&] {
                  waited = waited == 0 ? GetTickCount64() - start + 1 : waited;
                  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                  }
                  SetEvent(mayEnd.get());
              });
    EXPECT_LT(waited, 50U);
}

TEST(WorkerThread, ThrowsWhatTheWorkThrowsAndGoesOn) {
    WorkerThread worker;
    EXPECT_THROW(worker.Do([] { throw std::out_of_range("late"); }, [] {}), std::out_of_range);
    EXPECT_NE(0U, ThreadOf(worker, [] {}));
}

TEST(WorkerThread, WhatIsThrownMeanwhileWaitsForTheEndOfTheWork) {
    WorkerThread worker;
    const UniqueHandle mayEnd(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    bool isDone = false;
    const auto work = [&] {
        WaitForSingleObject(mayEnd.get(), INFINITE);
        isDone = true;
        throw std::domain_error("of the work");
    };
    const auto yield = [&] {
        SetEvent(mayEnd.get());
        throw std::out_of_range("meanwhile");
    };
    EXPECT_THROW(worker.Do(work, yield), std::out_of_range);
    EXPECT_TRUE(isDone);
    // And the next work knows nothing of it.
    EXPECT_NE(GetCurrentThreadId(), ThreadOf(worker, [] {}));
}

TEST(WorkerThread, WhatIsAskedForMeanwhileIsDoneAtOnce) {
    WorkerThread worker;
    const UniqueHandle mayEnd(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    DWORD thread = 0;
    worker.Do([&] { WaitForSingleObject(mayEnd.get(), INFINITE); },
              [&] {
                  thread = ThreadOf(worker, [] {});
                  SetEvent(mayEnd.get());
              });
    EXPECT_EQ(GetCurrentThreadId(), thread);
}

}  // namespace
}  // namespace ambrio
