// Two savers at once, and two configuration dialogs.

#include <gtest/gtest.h>

#include <memory>

#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

class SecondInstanceTest : public SaverTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(SecondInstanceTest, EndsAtOnceWhileTheFirstGoesOn) {
    WriteOneSet();
    RunToTheEnd();
    {
        RunningProgram second(Folder.Program(), GetParam());
        EXPECT_TRUE(second.WaitForEnd());
        EXPECT_EQ(second.ExitCode(), 0U);
    }
    EXPECT_TRUE(GoesOn());
    EXPECT_EQ(Log().Blocks().size(), 1U);
    EndByKey();
}

INSTANTIATE_TEST_SUITE_P(Switches, SecondInstanceTest,
                         testing::Values(L"/S", L"/s", L"/D", L"/d", L"/Sxyz"));

class ForeignWindowTest : public SaverTest {};

struct WindowDestroyer {
    void operator()(HWND window) const { DestroyWindow(window); }
};

TEST_F(ForeignWindowTest, AnyTopLevelWindowWithTheTitleKeepsTheSaverFromStarting) {
    const std::unique_ptr<HWND__, WindowDestroyer> foreign(CreateWindowExW(
        0, L"STATIC", kSaverTitle, WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr));
    ASSERT_NE(foreign, nullptr);
    Start(L"/S");
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Program().ExitCode(), 0U);
    EXPECT_FALSE(Log().Exists());
}

class SecondConfigurationTest : public DialogTest {
  protected:
    // Starts the configuration once more, which must end by itself.
    void StartAnother() {
        const RunningProgram second(Folder.Program(), L"/C");
        EXPECT_TRUE(second.WaitForEnd());
        EXPECT_EQ(second.ExitCode(), 0U);
        EXPECT_TRUE(TopLevelWindows(second.ProcessId()).empty());
    }
    [[nodiscard]] static bool ComesToFront(const WindowProbe& window) {
        return WaitUntil([&] { return GetForegroundWindow() == window.Handle(); });
    }
};

TEST_F(SecondConfigurationTest, BringsTheFirstToTheFrontAndEnds) {
    const WindowProbe dialog = OpenConfiguration();
    const std::unique_ptr<HWND__, WindowDestroyer> over(
        CreateWindowExW(0, L"STATIC", L"Over it", WS_POPUP | WS_VISIBLE, 0, 0, 300, 300, nullptr,
                        nullptr, nullptr, nullptr));
    SetForegroundWindow(over.get());
    ASSERT_TRUE(ComesToFront(WindowProbe(over.get())));
    StartAnother();
    EXPECT_TRUE(ComesToFront(dialog));
    CloseConfiguration();
}

TEST_F(SecondConfigurationTest, RestoresTheFirstFromAnIcon) {
    const WindowProbe dialog = OpenConfiguration();
    ShowWindow(dialog.Handle(), SW_MINIMIZE);
    ASSERT_TRUE(WaitUntil([&] { return IsIconic(dialog.Handle()) != FALSE; }));
    StartAnother();
    EXPECT_TRUE(WaitUntil([&] { return IsIconic(dialog.Handle()) == FALSE; }));
    CloseConfiguration();
}

TEST_F(SecondConfigurationTest, BringsWhatTheFirstHasOpenToTheFront) {
    const WindowProbe properties = OpenProperties(L"S");
    const std::unique_ptr<HWND__, WindowDestroyer> over(
        CreateWindowExW(0, L"STATIC", L"Over it", WS_POPUP | WS_VISIBLE, 0, 0, 300, 300, nullptr,
                        nullptr, nullptr, nullptr));
    SetForegroundWindow(over.get());
    ASSERT_TRUE(ComesToFront(WindowProbe(over.get())));
    StartAnother();
    EXPECT_TRUE(ComesToFront(properties));
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    CloseConfiguration();
}

// Neither has a window yet when the other looks for one.
TEST_F(SecondConfigurationTest, OfTwoThatStartTogetherOneStays) {
    const RunningProgram second(Folder.Program(), L"/C");
    RunningProgram& first = Start(L"/C");
    EXPECT_TRUE(WaitUntil([&] { return !first.IsRunning() || !second.IsRunning(); }));
    const RunningProgram& left = first.IsRunning() ? first : second;
    const auto dialog = WaitForWindow(left.ProcessId(), kConfiguration);
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(ClosesByItsBox(*dialog));
    EXPECT_TRUE(first.WaitForEnd());
    EXPECT_TRUE(second.WaitForEnd());
}

// The first has said that it is there, and its dialog is not to be seen yet.
TEST_F(SecondConfigurationTest, WaitsForOneThatIsJustComingUp) {
    const UniqueHandle first(CreateMutexW(nullptr, TRUE, L"Local\\Ambrio Configuration"));
    ASSERT_NE(first, nullptr);
    Start(L"/C");
    constexpr Milliseconds kShorterThanItsPatience{2000};
    EXPECT_FALSE(WaitForWindow(Program().ProcessId(), kConfiguration, kShorterThanItsPatience));
    // It ends without a dialog, so this one has its turn.
    ReleaseMutex(first.get());
    static_cast<void>(WindowTitled(kConfiguration));
    CloseConfiguration();
}

// One that was ended by force has taken nothing with it.
TEST_F(SecondConfigurationTest, StartsAnewAfterOneThatWasKilled) {
    static_cast<void>(OpenConfiguration());
    Program().Kill();
    EXPECT_TRUE(Ends());
    static_cast<void>(OpenConfiguration());
    CloseConfiguration();
}

}  // namespace
}  // namespace ambrio::e2e
