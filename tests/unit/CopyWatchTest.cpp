#include "platform/CopyWatch.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(CopyWatch, TellsTheShareThatIsDoneOfAFileOfAnySize) {
    CopyWatch watch;
    EXPECT_EQ(0, watch.PercentDone());
    watch.NoteDone(1, 3);
    EXPECT_EQ(33, watch.PercentDone());
    constexpr std::uint64_t kHuge = std::uint64_t{1} << 56U;  // bytes
    watch.NoteDone(kHuge / 4, kHuge);
    EXPECT_EQ(25, watch.PercentDone());
    watch.NoteDone(0, 0);
    EXPECT_EQ(100, watch.PercentDone());
}

TEST(CopyWatch, BreaksOffForGood) {
    CopyWatch watch;
    EXPECT_FALSE(watch.IsBrokenOff());
    watch.BreakOff();
    watch.NoteDone(1, 2);
    EXPECT_TRUE(watch.IsBrokenOff());
}

}  // namespace
}  // namespace ambrio
