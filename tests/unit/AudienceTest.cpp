#include "saver/model/Audience.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(Audience, IsThereUntilTheSystemTellsOtherwise) {
    EXPECT_TRUE(Audience().IsThere());
}

TEST(Audience, IsNotThereForAnyOneReasonUntilThatIsOver) {
    for (const Unseen reason : {Unseen::SessionLocked, Unseen::SessionAway,
                                Unseen::SessionDisplaysOff, Unseen::MonitorOff}) {
        SCOPED_TRACE(static_cast<int>(reason));
        Audience audience;
        audience.Hear(reason, true);
        EXPECT_FALSE(audience.IsThere());
        audience.Hear(reason, false);
        EXPECT_TRUE(audience.IsThere());
    }
}

TEST(Audience, IsThereOnlyWhenEveryReasonIsOver) {
    Audience audience;
    audience.Hear(Unseen::SessionLocked, true);
    audience.Hear(Unseen::SessionAway, true);
    audience.Hear(Unseen::SessionLocked, false);
    EXPECT_FALSE(audience.IsThere());
    audience.Hear(Unseen::SessionAway, false);
    EXPECT_TRUE(audience.IsThere());
}

// The monitor of the machine is off while somebody looks at it from afar.
TEST(Audience, OfTheSessionsOwnDisplaysCountsForMoreThanThatOfTheMonitor) {
    Audience audience;
    audience.Hear(Unseen::MonitorOff, true);
    audience.Hear(Unseen::SessionDisplaysOff, false);
    EXPECT_TRUE(audience.IsThere());
    audience.Hear(Unseen::MonitorOff, false);
    audience.Hear(Unseen::SessionDisplaysOff, true);
    EXPECT_FALSE(audience.IsThere());
}

}  // namespace
}  // namespace ambrio
