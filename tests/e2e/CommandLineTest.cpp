// What each command line makes of the program.

#include <gtest/gtest.h>

#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

class CommandLineTest : public SaverTest, public testing::WithParamInterface<const wchar_t*> {};

using NothingTest = CommandLineTest;

TEST_P(NothingTest, EndsTheProgramSilently) {
    Start(GetParam());
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Program().ExitCode(), 0U);
    EXPECT_FALSE(Log().Exists());
    EXPECT_TRUE(Settings.Sections().empty());
}

INSTANTIATE_TEST_SUITE_P(UnknownSwitches, NothingTest,
                         testing::Values(L"/X", L"S", L"-s", L"/", L"//S", L"\"/S\"", L"x /S",
                                         L"\u017f /S"));
// No window is behind these numbers, so there is nothing to be shown.
INSTANTIATE_TEST_SUITE_P(WindowsThatDoNotExist, NothingTest,
                         testing::Values(L"/p", L"/P 0", L"/p 3", L"/p x", L"/p:3", L"/P -1",
                                         L"/p 2147483647.4"));
INSTANTIATE_TEST_SUITE_P(PasswordChange, NothingTest, testing::Values(L"/a", L"/A 0", L"/a 12"));

using SaverLineTest = CommandLineTest;

TEST_P(SaverLineTest, ShowsTheSaver) {
    WriteOneSet();
    RunToTheEnd(GetParam());
    EXPECT_TRUE(Saver().IsVisible());
    EndByKey();
}

INSTANTIATE_TEST_SUITE_P(Switches, SaverLineTest,
                         testing::Values(L"/s", L"/S", L"/Sxyz", L"/s /c", L"/D", L"/dx"));

using OverflowTest = CommandLineTest;

TEST_P(OverflowTest, ShowsTheRuntimesErrorAndEnds) {
    Start(GetParam());
    const MessageBoxProbe box = WaitForBox();
    EXPECT_EQ(box.Title(), L"Ambrio");
    EXPECT_EQ(WithoutReturns(box.Text()), L"Run-time error '6':\n\nOverflow");
    EXPECT_EQ(box.Icon(), BoxIcon::CriticalStop);
    EXPECT_TRUE(box.Press());
    EXPECT_TRUE(Ends());
    EXPECT_FALSE(Log().Exists());
}

INSTANTIATE_TEST_SUITE_P(NumbersOutOfRange, OverflowTest,
                         testing::Values(L"/P 4294967296", L"/p 2147483647.5", L"/P -2147483649",
                                         L"/p 1e10", L"/A 99999999999"));

}  // namespace
}  // namespace ambrio::e2e
