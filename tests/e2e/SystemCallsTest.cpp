// What the program asks of the system that leaves nothing to be seen.

#include "tests/e2e/support/SystemCalls.h"

#include <gtest/gtest.h>

#include "tests/e2e/support/PreviewHost.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

class SystemCallsTest : public SaverTest {
  protected:
    SystemCallsTest() { LoadIntoPrograms(SystemCalls::Module()); }

    SystemCalls calls_;
};

TEST_F(SystemCallsTest, ThePasswordIsChangedByTheSystemOverTheWindowThatTheSwitchNames) {
    Start(L"/A 77654");
    EXPECT_TRUE(Ends());
    EXPECT_EQ(calls_.Of(L"ChangePassword"), Lines{L"mpr.dll SCRSAVE 77654 0 0"});
}

TEST_F(SystemCallsTest, NoOtherSwitchChangesThePassword) {
    WriteOneSet();
    RunToTheEnd();
    EndByKey();
    EXPECT_EQ(calls_.Of(L"ChangePassword"), Lines{});
}

TEST_F(SystemCallsTest,
       TheRunBeginsAfter150MillisecondsAndTheAnimationStepsEvery100AndDrawsEvery30) {
    Settings.WriteSets({});
    Start(L"/S");
    EXPECT_TRUE(WaitUntil([this] { return LatestBlock().size() == 6; }));
    EXPECT_TRUE(WaitUntil([this] { return calls_.Of(L"SetTimer").size() >= 3; }));
    EXPECT_EQ(calls_.Of(L"SetTimer"), (Lines{L"AmbrioScreenSaver 1 150", L"AmbrioScreenSaver 2 100",
                                             L"AmbrioScreenSaver 4 30"}));
    EndByKey();
}

TEST_F(SystemCallsTest, TheSystemIsAskedToTellOfTheSessionAndItsDisplaysWhileTheFormIsThere) {
    WriteOneSet();
    RunToTheEnd();
    // The window that is to be told is one, and this session's events are enough.
    EXPECT_EQ(calls_.Of(L"WatchSession"), Lines{L"1 0"});
    // The displays of the session, and the monitor.
    EXPECT_EQ(calls_.Of(L"WatchPower"), (Lines{L"1 " + std::to_wstring(0x2b84c20e) + L" 0",
                                               L"1 " + std::to_wstring(0x02731015) + L" 0"}));
    EXPECT_EQ(calls_.Of(L"LeaveSession"), Lines{});
    EXPECT_EQ(calls_.Of(L"LeavePower"), Lines{});
    EndByKey();
    EXPECT_EQ(calls_.Of(L"LeaveSession"), Lines{L"1"});
    EXPECT_EQ(calls_.Of(L"LeavePower"),
              (Lines{std::to_wstring(0x2b84c20e), std::to_wstring(0x02731015)}));
}

TEST_F(SystemCallsTest, ThePreviewStepsEvery100Milliseconds) {
    PreviewHost host(152, 112);
    Start(L"/P " + std::to_wstring(reinterpret_cast<INT_PTR>(host.Handle())));
    EXPECT_TRUE(WaitUntil([&] { return host.Picture() != nullptr; }));
    host.DestroyWindow();
    EXPECT_TRUE(Ends());
    EXPECT_EQ(calls_.Of(L"SetTimer"), Lines{L"AmbrioPreviewForm 1 100"});
}

TEST_F(SystemCallsTest, TheSystemIsNotAllowedToStartASaverOverThisOne) {
    Settings.WriteSets({});
    Start(L"/S");
    const WindowProbe saver = Saver();
    // The system uses the four lowest bits for itself.
    for (const WPARAM command : {SC_SCREENSAVE, SC_SCREENSAVE + 7, SC_MONITORPOWER}) {
        EXPECT_EQ(saver.Send(WM_SYSCOMMAND, command), 0);
    }
    EXPECT_EQ(calls_.Of(L"SystemCommand"), Lines{std::to_wstring(SC_MONITORPOWER)});
    EXPECT_TRUE(WaitUntil([this] { return LatestBlock().size() == 6; }));
    EndByKey();
}

}  // namespace
}  // namespace ambrio::e2e
