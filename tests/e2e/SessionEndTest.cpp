// The user logs off or switches the machine off.

#include <gtest/gtest.h>

#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

class SessionEndTest : public SaverTest {
  protected:
    // A run that leaves the form with a failure to be told of.
    void RunIntoAFailure() {
        Settings.WriteSets({{L"Documents", Source.PathOf(L"missing"), Destination()}});
        RunToTheEnd();
    }
    void AskForTheEnd() { EXPECT_EQ(Saver().Send(WM_QUERYENDSESSION), TRUE); }
    void Tell(bool ends) { EXPECT_TRUE(Saver().Send(WM_ENDSESSION, ends ? TRUE : FALSE)); }
};

TEST_F(SessionEndTest, EndsTheSaverWithoutABoxThatNobodyWouldRead) {
    RunIntoAFailure();
    AskForTheEnd();
    EXPECT_TRUE(GoesOn());
    Tell(true);
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Program().ExitCode(), 0U);
}

TEST_F(SessionEndTest, MayComeUnaskedAsWhenTheSystemIsForcedToEnd) {
    RunIntoAFailure();
    Tell(true);
    EXPECT_TRUE(Ends());
}

TEST_F(SessionEndTest, ThatDoesNotComeAfterAllLeavesTheSaverAsItWas) {
    RunIntoAFailure();
    AskForTheEnd();
    Tell(false);
    EXPECT_TRUE(GoesOn());
    EndByKeyAndBox();
}

TEST_F(SessionEndTest, StopsARunWhichThenEndsTheSaver) {
    Source.AddManyFiles(L"many", 300);
    WriteOneSet();
    RunUntilFilesAreCopied();
    AskForTheEnd();
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Program().ExitCode(), 0U);
    const Lines block = LatestBlock();
    ASSERT_GE(block.size(), 2U);
    EXPECT_EQ(block[block.size() - 2], std::wstring(L"Ambrio interrupted ") + kNow);
}

}  // namespace
}  // namespace ambrio::e2e
