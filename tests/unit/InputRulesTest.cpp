#include "saver/model/InputRules.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>
#include <vector>

namespace ambrio {
namespace {

// How often each of the movements asks for the end.
std::vector<int> Requests(std::initializer_list<std::pair<float, float>> movements) {
    MouseMoveRule rule;
    std::vector<int> requests;
    for (const auto& [x, y] : movements) {
        requests.push_back(rule.Move(x, y));
    }
    return requests;
}

using Counts = std::vector<int>;

TEST(MouseMoveRule, OnlyRecordsTheFirstMovement) {
    EXPECT_EQ((Counts{0, 0}), Requests({{150, 300}, {150, 300}}));
}

TEST(MouseMoveRule, AsksOnceForEachCoordinateThatChanged) {
    EXPECT_EQ((Counts{0, 1, 1, 2}), Requests({{150, 300}, {165, 300}, {165, 285}, {180, 300}}));
}

TEST(MouseMoveRule, KnowsNoThreshold) {
    EXPECT_EQ((Counts{0, 1, 1}), Requests({{150, 300}, {151, 300}, {151, 300.5F}}));
}

TEST(MouseMoveRule, NeverComparesACoordinateStoredAsZero) {
    EXPECT_EQ((Counts{0, 0, 1, 1, 0}),
              Requests({{0, 300}, {7500, 300}, {0, 300}, {7500, 0}, {7500, 4500}}));
}

TEST(MouseMoveRule, OnlyRecordsAMovementWithoutMotion) {
    MouseMoveRule rule;
    EXPECT_EQ(0, rule.Move(150, 300));
    EXPECT_EQ(0, rule.Move(450, 600, false));
    EXPECT_EQ(0, rule.Move(450, 600));
    EXPECT_EQ(1, rule.Move(450, 615));
}

TEST(MouseMoveRule, StartsAnewWhenItForgets) {
    MouseMoveRule rule;
    EXPECT_EQ(0, rule.Move(150, 300));
    rule.Forget();
    EXPECT_EQ(0, rule.Move(450, 600));
    EXPECT_EQ(2, rule.Move(150, 300));
}

TEST(PointerMotion, IsWhereThePointerWasNotLast) {
    PointerMotion pointer;
    EXPECT_TRUE(pointer.MovesTo(0, 0));
    EXPECT_FALSE(pointer.MovesTo(0, 0));
    EXPECT_TRUE(pointer.MovesTo(0, 7));
    EXPECT_TRUE(pointer.MovesTo(-5, 7));
    EXPECT_FALSE(pointer.MovesTo(-5, 7));
    EXPECT_TRUE(pointer.MovesTo(0, 0));
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
