#include "platform/win32/system/WorkWithYield.h"

#include <gtest/gtest.h>

#include "platform/win32/system/Handle.h"

namespace ambrio {
namespace {

TEST(WorkWithYield, WorksOnAnotherThreadUntilItIsDone) {
    const UniqueHandle mayEnd(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    DWORD worker = 0;
    bool isDone = false;
    int yields = 0;
    WorkWithYield(
        [&] {
            worker = GetCurrentThreadId();
            WaitForSingleObject(mayEnd.get(), INFINITE);
            isDone = true;
        },
        [&] {
            // It would never end if nobody were let in meanwhile.
            if (++yields == 3) {
                SetEvent(mayEnd.get());
            }
        });
    EXPECT_TRUE(isDone);
    EXPECT_GE(yields, 3);
    EXPECT_NE(GetCurrentThreadId(), worker);
}

TEST(WorkWithYield, WorksHereWhenNobodyIsToBeLetIn) {
    DWORD worker = 0;
    WorkWithYield([&] { worker = GetCurrentThreadId(); }, {});
    EXPECT_EQ(GetCurrentThreadId(), worker);
}

}  // namespace
}  // namespace ambrio
