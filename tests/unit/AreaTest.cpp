#include "saver/animation/Area.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

using Areas = std::vector<Area>;

// A monitor to the left of the primary one, one above it, and one to its right that begins higher.
constexpr Area kPrimary{0, 0, 1920, 1080};
constexpr Area kLeft{-1280, 56, 0, 1080};
constexpr Area kAbove{300, -800, 1580, 0};
constexpr Area kRight{1920, -360, 4480, 1080};

// Where the full-screen form lies with them: from the primary monitor's corner, as large as all of
// them together.
constexpr Area kForm{0, 0, 1280 + 4480, 800 + 1080};

TEST(Area, OutsideTheFormLieTheMonitorsThatItDoesNotReachAndThePartsOfOthers) {
    const Areas monitors{kPrimary, kLeft, kAbove, kRight};
    EXPECT_EQ((Areas{kLeft, kAbove, {1920, -360, 4480, 0}}), PartsOutside(monitors, kForm));
}

TEST(Area, OutsideLiesNothingOfAMonitorThatTheFormCovers) {
    EXPECT_EQ(Areas{}, PartsOutside(Areas{kPrimary, {1920, 0, 3840, 1080}}, kForm));
}

TEST(Area, OutsideLiesARingRoundAFormThatIsSmaller) {
    const Areas parts = PartsOutside(Areas{{0, 0, 100, 80}}, {30, 20, 60, 50});
    EXPECT_EQ((Areas{{0, 0, 100, 20}, {0, 20, 30, 50}, {60, 20, 100, 50}, {0, 50, 100, 80}}),
              parts);
}

TEST(Area, InsideTheFormLieItsVisibleParts) {
    EXPECT_EQ((Areas{kPrimary, {1920, 0, 4480, 1080}}),
              PartsInside(Areas{kPrimary, kLeft, kAbove, kRight}, kForm));
    EXPECT_EQ((Areas{{0, 0, 1820, 1030}}), PartsInside(Areas{kPrimary}, {100, 50, 3000, 2000}))
        << "relative to the form";
}

TEST(Area, MovesFreelyFromOneMonitorToTheNext) {
    const Areas monitors{kPrimary, {1920, 0, 4480, 1440}};
    EXPECT_EQ((Stretch{0, 4480}), FreeAcross(monitors, {100, 300}, 50));
    EXPECT_EQ((Stretch{0, 4480}), FreeAcross(monitors, {880, 1080}, 50)) << "to the last row";
}

TEST(Area, StopsWhereTheNextMonitorHasNoSuchRows) {
    const Areas monitors{kPrimary, {1920, 400, 4480, 1840}};
    EXPECT_EQ((Stretch{0, 1920}), FreeAcross(monitors, {399, 700}, 50));
    EXPECT_EQ((Stretch{0, 4480}), FreeAcross(monitors, {400, 700}, 50));
    EXPECT_EQ((Stretch{1920, 4480}), FreeAcross(monitors, {900, 1100}, 3000));
    EXPECT_EQ((Stretch{1920, 4480}), FreeAcross(monitors, {900, 1100}, 50)) << "the nearest";
}

TEST(Area, StaysOnItsSideOfAGap) {
    const Areas monitors{{0, 0, 800, 600}, {1000, 0, 1800, 600}};
    EXPECT_EQ((Stretch{0, 800}), FreeAcross(monitors, {0, 200}, 100));
    EXPECT_EQ((Stretch{1000, 1800}), FreeAcross(monitors, {0, 200}, 1100));
    EXPECT_EQ((Stretch{0, 800}), FreeAcross(monitors, {0, 200}, 850));
}

TEST(Area, HasNoRoomForRowsThatNobodySees) {
    const Areas monitors{kPrimary};
    EXPECT_EQ(Stretch{}, FreeAcross(monitors, {1000, 1200}, 50));
    EXPECT_EQ(Stretch{}, FreeAcross(monitors, {1200, 1300}, 50));
    EXPECT_EQ(Stretch{}, FreeAcross(monitors, {100, 100}, 50));
}

TEST(Area, TurnedIsAcrossAndDownExchanged) {
    EXPECT_EQ((Areas{{-800, 300, 0, 1580}}), Turned(Areas{kAbove}));
}

}  // namespace
}  // namespace ambrio
