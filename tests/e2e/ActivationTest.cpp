// Another program's window gets the keys while the saver is up.

#include <gtest/gtest.h>

#include <string>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/HeldFiles.h"
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

// The run stands still in the middle of a large file until the test lets it go on.
class ActivationTest : public SaverTest {
  protected:
    ActivationTest() {
        LoadIntoPrograms(HeldFiles::Module());
        Source.AddFile(L"held.bin", std::string(2U << 20U, 'H'));
        WriteOneSet();
    }
    WindowProbe RunIntoTheLargeFile(const std::wstring& arguments = L"/S") {
        Start(arguments);
        const WindowProbe saver = Saver();
        EXPECT_TRUE(files_.WaitUntilHeld());
        return saver;
    }
    // The run goes to its end; a key then ends the saver, whoever else has the keys.
    void ExpectTheRunToGoOn() {
        files_.GoOn();
        WaitForTheEndOfTheRun();
        EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
        Saver().Post(WM_KEYDOWN, VK_SPACE, 1);
        EXPECT_TRUE(Ends());
    }

    HeldFiles files_;
};

TEST_F(ActivationTest, TheSaverDoesNotCoverAWindowThatGetsTheKeys) {
    const WindowProbe saver = RunIntoTheLargeFile();
    EXPECT_TRUE(saver.IsTopmost());
    const PreviewHost other(300, 200);
    SetForegroundWindow(other.Handle());
    if (!WaitUntil([&] { return GetForegroundWindow() == other.Handle(); })) {
        ExpectTheRunToGoOn();
        GTEST_SKIP() << "this system gives the keys to no window of a program in the background";
    }
    EXPECT_TRUE(WaitUntil([&] { return IsInFrontOf(other.Handle(), saver.Handle()); }));
    EXPECT_FALSE(saver.IsTopmost());
    EXPECT_TRUE(saver.IsVisible());
    ExpectTheRunToGoOn();
}

TEST_F(ActivationTest, TheSaverComesBackToTheTopWithTheKeysUntilTheRunHasEnded) {
    const WindowProbe saver = RunIntoTheLargeFile();
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, FALSE));
    EXPECT_FALSE(saver.IsTopmost());
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, TRUE));
    EXPECT_TRUE(saver.IsTopmost());
    files_.GoOn();
    WaitForTheEndOfTheRun();
    EXPECT_TRUE(WaitUntil([&] { return !saver.IsTopmost(); }));
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, FALSE));
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, TRUE));
    EXPECT_FALSE(saver.IsTopmost());
    ExpectTheRunToGoOn();
}

TEST_F(ActivationTest, AnOrdinaryWindowStaysWhereItIs) {
    const WindowProbe saver = RunIntoTheLargeFile(L"/D");
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, FALSE));
    EXPECT_TRUE(saver.Send(WM_ACTIVATEAPP, TRUE));
    EXPECT_FALSE(saver.IsTopmost());
    ExpectTheRunToGoOn();
}

}  // namespace
}  // namespace ambrio::e2e
