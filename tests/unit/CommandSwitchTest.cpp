#include "app/model/CommandSwitch.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

TEST(CommandSwitch, IsTheFirstTwoCharactersInUpperCase) {
    EXPECT_EQ(L"/C", SwitchOf(L"/C"));
    EXPECT_EQ(L"/C", SwitchOf(L"/c:1234"));
    EXPECT_EQ(L"/C", SwitchOf(L"/C 1234"));
    EXPECT_EQ(L"/S", SwitchOf(L"/s"));
    EXPECT_EQ(L"/S", SwitchOf(L"/Sxyz"));
    EXPECT_EQ(L"/P", SwitchOf(L"/p 1234"));
    EXPECT_EQ(L"/X", SwitchOf(L"/x"));
    EXPECT_EQ(L"S", SwitchOf(L"S"));
    EXPECT_EQ(L"-S", SwitchOf(L"-s"));
    EXPECT_EQ(L" /", SwitchOf(L" /S"));
}

TEST(CommandSwitch, IsTheConfigurationForAnEmptyCommandLine) {
    EXPECT_EQ(L"/C", SwitchOf(L""));
}

TEST(CommandSwitch, ReadsTheWindowHandleBehindIt) {
    EXPECT_EQ(1234, WindowHandleOf(L"/p 1234"));
    EXPECT_EQ(1234, WindowHandleOf(L"/P1234"));
    EXPECT_EQ(1234, WindowHandleOf(L"/A   1234 and more"));
    EXPECT_EQ(-5, WindowHandleOf(L"/P -5"));
    EXPECT_EQ(2147483647, WindowHandleOf(L"/P 2147483647"));
}

TEST(CommandSwitch, GivesHandleZeroWithoutANumber) {
    EXPECT_EQ(0, WindowHandleOf(L"/p"));
    EXPECT_EQ(0, WindowHandleOf(L"/p "));
    EXPECT_EQ(0, WindowHandleOf(L"/p:1234"));
    EXPECT_EQ(0, WindowHandleOf(L"/"));
}

TEST(CommandSwitch, RoundsAHalfToTheEvenNeighbour) {
    EXPECT_EQ(2, WindowHandleOf(L"/P 2.5"));
    EXPECT_EQ(4, WindowHandleOf(L"/P 3.5"));
    EXPECT_EQ(-2, WindowHandleOf(L"/P -2.5"));
}

TEST(CommandSwitch, OverflowsBeyond32Bits) {
    for (const wchar_t* line : {L"/P 2147483648", L"/P 2147483647.5", L"/A -2147483649",
                                L"/P 1e999", L"/P 99999999999999999999"}) {
        try {
            (void)WindowHandleOf(line);
            ADD_FAILURE() << "no overflow";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(ErrorNumber::Overflow, error.Number());
        }
    }
}

}  // namespace
}  // namespace ambrio
