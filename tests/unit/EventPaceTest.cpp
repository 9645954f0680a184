#include "saver/model/EventPace.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

using namespace std::chrono_literals;

constexpr EventPace::Time kStart{5h};

TEST(EventPace, LetsEventsRunBeforeAFirstFile) {
    EXPECT_TRUE(EventPace().IsDue(kStart));
}

TEST(EventPace, PassesOverFilesForAMillisecondAndNoLonger) {
    EventPace pace;
    pace.Note(kStart);
    EXPECT_FALSE(pace.IsDue(kStart));
    EXPECT_FALSE(pace.IsDue(kStart + 999us));
    EXPECT_TRUE(pace.IsDue(kStart + 1ms));
    EXPECT_TRUE(pace.IsDue(kStart + 1h));
}

// However the files are spread: what a file that is passed over does not do is to put the end off.
TEST(EventPace, NeverKeepsEventsWaitingForLongerThanAMillisecondAndAFile) {
    EventPace pace;
    EventPace::Time now = kStart;
    EventPace::Time last = kStart;
    pace.Note(now);
    for (int file = 0; file < 10'000; ++file) {
        const auto lasted = std::chrono::microseconds(1 + file * 37 % 400);
        now += lasted;
        if (pace.IsDue(now)) {
            EXPECT_LT(now - last, 1ms + lasted);
            last = now;
            pace.Note(now);
        }
    }
    EXPECT_GT(last, kStart + 1s);
}

TEST(EventPace, IsNotStoppedByAClockThatGoesBack) {
    EventPace pace;
    pace.Note(kStart);
    EXPECT_TRUE(pace.IsDue(kStart - 1us));
}

}  // namespace
}  // namespace ambrio
