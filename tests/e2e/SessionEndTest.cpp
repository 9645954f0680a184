// The user logs off or switches the machine off.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/HeldFiles.h"
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

// In the middle of the copy of a large file over an old copy.
class SessionEndInACopyTest : public SessionEndTest {
  protected:
    SessionEndInACopyTest() {
        LoadIntoPrograms(HeldFiles::Module());
        Source.AddFile(L"held.bin", std::string(kLarge, 'N'));
        TestTree(Destination()).AddFile(L"held.bin", kOld, 7200);
        WriteOneSet();
        Start(L"/S");
        EXPECT_TRUE(files_.WaitUntilHeld());
    }

    // As the system does: asks every window of the program, then tells every one.
    void AskEveryWindow(bool backwards) {
        windows_ = TopLevelWindows(Program().ProcessId());
        if (backwards) {
            std::reverse(windows_.begin(), windows_.end());
        }
        for (const WindowProbe& window : windows_) {
            EXPECT_EQ(window.Send(WM_QUERYENDSESSION), TRUE);
        }
    }
    void TellEveryWindow(bool ends) {
        for (const WindowProbe& window : windows_) {
            // A window that has gone needs no answer.
            EXPECT_TRUE(window.Send(WM_ENDSESSION, ends ? TRUE : FALSE) || !window.Exists());
        }
    }

    static constexpr std::size_t kLarge = 2U << 20U;
    static constexpr const char* kOld = "the old copy";

    HeldFiles files_;
    std::vector<WindowProbe> windows_;
};

class SessionEndOrderTest : public SessionEndInACopyTest,
                            public testing::WithParamInterface<bool> {};

TEST_P(SessionEndOrderTest, BreaksTheCopyOffAndWaitsForTheLog) {
    AskEveryWindow(GetParam());
    TellEveryWindow(true);
    // The system ends what has answered.
    Program().Kill();
    const TreeFacts copies = ReadTree(Destination());
    EXPECT_EQ(copies.size(), 1U) << "a temporary file is left";
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\held.bin"), kOld);
    const std::wstring place = L">";
    EXPECT_EQ(LatestBlock(),
              Block({L"'Documents' start", L"Error 75 - Path/File access error while copying ",
                     L"      <" + Source.PathOf(L"held.bin") + place,
                     L"   to <" + Destination() + L"\\held.bin" + place, L"'Documents' complete",
                     L"Of 1 files checked, 0 were copied and 1 failed to copy; 0 copies were "
                     L"removed."},
                    L" interrupted "));
}

INSTANTIATE_TEST_SUITE_P(Orders, SessionEndOrderTest, testing::Bool());

TEST_F(SessionEndInACopyTest, EndsTheProgramWithoutABox) {
    AskEveryWindow(false);
    TellEveryWindow(true);
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Program().ExitCode(), 0U);
}

TEST_F(SessionEndInACopyTest, ThatDoesNotComeAfterAllLetsTheFileBeCopied) {
    AskEveryWindow(false);
    TellEveryWindow(false);
    EXPECT_TRUE(GoesOn());
    files_.GoOn();
    EXPECT_TRUE(Ends());
    EXPECT_EQ(ReadTree(Destination())[L"held.bin"].Size, kLarge);
}

}  // namespace
}  // namespace ambrio::e2e
