// Another program's window gets the keys while the saver is up.

#include <gtest/gtest.h>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/PreviewHost.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

// Whether the one lies in front of the other, both being windows of the desktop.
bool IsInFrontOf(HWND one, HWND other) {
    HWND above = other;
    while (above != nullptr && above != one) {
        above = GetWindow(above, GW_HWNDPREV);
    }
    return above == one;
}

class ActivationTest : public SaverTest {
  protected:
    ActivationTest() {
        Source.AddManyFiles(L"many", 300);
        WriteOneSet();
    }
    // The run has gone on all the while; a key ends the saver, whoever else has the keys.
    void ExpectTheRunToGoOn() {
        WaitForTheEndOfTheRun();
        EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
        Saver().Post(WM_KEYDOWN, VK_SPACE, 1);
        EXPECT_TRUE(Ends());
    }
};

TEST_F(ActivationTest, TheSaverDoesNotCoverAWindowThatGetsTheKeys) {
    RunUntilFilesAreCopied();
    const WindowProbe saver = Saver();
    EXPECT_TRUE(saver.IsTopmost());
    const PreviewHost other(300, 200);
    SetForegroundWindow(other.Handle());
    if (!WaitUntil([&] { return GetForegroundWindow() == other.Handle(); })) {
        saver.Post(WM_KEYDOWN, VK_SPACE, 1);
        EXPECT_TRUE(Ends());
        GTEST_SKIP() << "this system gives the keys to no window of a program in the background";
    }
    EXPECT_TRUE(WaitUntil([&] { return IsInFrontOf(other.Handle(), saver.Handle()); }));
    EXPECT_FALSE(saver.IsTopmost());
    EXPECT_TRUE(saver.IsVisible());
    ExpectTheRunToGoOn();
}

TEST_F(ActivationTest, TheSaverComesBackToTheTopWithTheKeysUntilTheRunHasEnded) {
    RunUntilFilesAreCopied();
    const WindowProbe saver = Saver();
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, FALSE));
    EXPECT_FALSE(saver.IsTopmost());
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, TRUE));
    EXPECT_TRUE(saver.IsTopmost());
    WaitForTheEndOfTheRun();
    EXPECT_TRUE(WaitUntil([&] { return !saver.IsTopmost(); }));
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, FALSE));
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, TRUE));
    EXPECT_FALSE(saver.IsTopmost());
    ExpectTheRunToGoOn();
}

TEST_F(ActivationTest, AnOrdinaryWindowStaysWhereItIs) {
    RunUntilFilesAreCopied(L"/D");
    const WindowProbe saver = Saver();
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, FALSE));
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, TRUE));
    EXPECT_FALSE(saver.IsTopmost());
    ExpectTheRunToGoOn();
}

}  // namespace
}  // namespace ambrio::e2e
