#include "saver/model/InputRules.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(MouseMoveRule, OnlyRecordsTheFirstMovement) {
    MouseMoveRule rule;
    EXPECT_EQ(0, rule.Move(150, 300));
    EXPECT_EQ(0, rule.Move(150, 300));
}

TEST(MouseMoveRule, AsksOnceForEachCoordinateThatChanged) {
    MouseMoveRule rule;
    rule.Move(150, 300);
    EXPECT_EQ(1, rule.Move(165, 300));
    EXPECT_EQ(1, rule.Move(165, 285));
    EXPECT_EQ(2, rule.Move(180, 300));
}

TEST(MouseMoveRule, KnowsNoThreshold) {
    MouseMoveRule rule;
    rule.Move(150, 300);
    EXPECT_EQ(1, rule.Move(151, 300));
    EXPECT_EQ(1, rule.Move(151, 300.5F));
}

TEST(MouseMoveRule, NeverComparesACoordinateStoredAsZero) {
    MouseMoveRule rule;
    rule.Move(0, 300);
    EXPECT_EQ(0, rule.Move(7500, 300));
    EXPECT_EQ(1, rule.Move(0, 300));
    EXPECT_EQ(1, rule.Move(7500, 0));
    EXPECT_EQ(0, rule.Move(7500, 4500));
}

TEST(InputRules, TakeSmallDForAnOrdinaryWindowWithoutAPointer) {
    EXPECT_TRUE(StaysOrdinaryWindow(L"/D"));
    EXPECT_FALSE(HidesPointer(L"/D"));
    EXPECT_TRUE(StaysOrdinaryWindow(L"/d"));
    EXPECT_TRUE(HidesPointer(L"/d"));
}

TEST(InputRules, LookAtTheWholeCommandLine) {
    for (const wchar_t* line : {L"/S", L"/s", L"/D ", L"/D 1", L"/Dx"}) {
        EXPECT_FALSE(StaysOrdinaryWindow(line));
        EXPECT_TRUE(HidesPointer(line));
    }
}

}  // namespace
}  // namespace ambrio
