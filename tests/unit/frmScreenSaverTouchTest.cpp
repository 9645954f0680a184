// What a touch leaves of a form that covers the screen, while its run goes to its end behind it.

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <utility>

#include "saver/form/frmScreenSaver.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {
namespace {

class frmScreenSaverTouchTest : public testing::Test {
  protected:
    static constexpr WPARAM kRunTimer = 1;
    static constexpr UINT_PTR kStepTimer = 2;

    // Tells when the run asks for the time for the first time: it is in the middle then.
    class Clock : public ManualClock {
      public:
        Clock() : ManualClock(DateTime{2026, 11, 22, 10, 0, 0}) {}
        DateTime Now() override {
            if (const auto call = std::exchange(FirstAsked, nullptr)) {
                call();
            }
            return ManualClock::Now();
        }
        std::function<void()> FirstAsked;
    };

    frmScreenSaverTouchTest() {
        application_.CommandLine = L"/S";
        form_.Show();
    }
    ~frmScreenSaverTouchTest() override { form_.UnloadForm(); }

    void Touch() { SendMessageW(form_.Handle(), WM_KEYDOWN, VK_SPACE, 1); }
    [[nodiscard]] bool IsShown() const { return IsWindowVisible(form_.Handle()) != FALSE; }
    // Whether the steps of the animation were still to come; they are not any more.
    [[nodiscard]] bool EndsSteps() const { return KillTimer(form_.Handle(), kStepTimer) != FALSE; }
    static bool IsPointerShown() {
        ShowCursor(TRUE);
        return ShowCursor(FALSE) >= 0;
    }

    Application application_;
    MemoryFileSystem files_;
    CopyWatch copyWatch_;
    MemorySettingsStore settings_;
    Clock clock_;
    frmScreenSaver form_{application_, files_, copyWatch_, settings_, clock_, [] {}};
};

TEST_F(frmScreenSaverTouchTest, TheFormGoesAndThePointerComesAtOnce) {
    EXPECT_TRUE(IsShown());
    EXPECT_FALSE(IsPointerShown());
    Touch();
    EXPECT_FALSE(IsShown());
    EXPECT_TRUE(IsPointerShown());
}

TEST_F(frmScreenSaverTouchTest, AnotherSizeOfTheScreenDoesNotBringTheFormBack) {
    Touch();
    SendMessageW(form_.Handle(), WM_DISPLAYCHANGE, 32, MAKELPARAM(640, 480));
    EXPECT_FALSE(IsShown());
}

TEST_F(frmScreenSaverTouchTest, TheAnimationGoesOnWithoutOne) {
    std::optional<bool> stepped;
    clock_.FirstAsked = [&] { stepped = EndsSteps(); };
    SendMessageW(form_.Handle(), WM_TIMER, kRunTimer, 0);
    EXPECT_EQ(stepped, true);
}

TEST_F(frmScreenSaverTouchTest, TheAnimationEndsWithATouchInTheRun) {
    std::optional<bool> stepped;
    clock_.FirstAsked = [&] {
        Touch();
        stepped = EndsSteps();
    };
    SendMessageW(form_.Handle(), WM_TIMER, kRunTimer, 0);
    EXPECT_EQ(stepped, false);
}

TEST_F(frmScreenSaverTouchTest, TheAnimationDoesNotBeginAfterATouchBeforeTheRun) {
    std::optional<bool> stepped;
    clock_.FirstAsked = [&] { stepped = EndsSteps(); };
    Touch();
    SendMessageW(form_.Handle(), WM_TIMER, kRunTimer, 0);
    EXPECT_EQ(stepped, false);
}

}  // namespace
}  // namespace ambrio
