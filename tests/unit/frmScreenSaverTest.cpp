#include "saver/form/frmScreenSaver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "platform/win32/windows/MessageLoop.h"
#include "platform/win32/windows/PixelBuffer.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {
namespace {

using namespace std::chrono_literals;

constexpr WPARAM kRunTimer = 1;
constexpr WPARAM kEndTimer = 3;

// The form, which only counts how often it would have ended the program.
class CountingSaver : public frmScreenSaver {
  public:
    using frmScreenSaver::frmScreenSaver;
    using frmScreenSaver::tmrEnd_;

    void End() override { ++Ends; }

    int Ends = 0;
};

// A form in an ordinary window, whose run never starts, as no message is waited for.
class frmScreenSaverTest : public testing::Test {
  protected:
    frmScreenSaverTest() {
        application_.Title = L"Ambrio";
        application_.CommandLine = L"/D";
        form_ = std::make_unique<CountingSaver>(application_, files_, copyWatch_, settings_, clock_,
                                                [this] { ++unloads_; });
        form_->Show();
    }

    Application application_;
    MemoryFileSystem files_;
    CopyWatch copyWatch_;
    MemorySettingsStore settings_;
    ManualClock clock_{DateTime{2026, 11, 21, 10, 0, 0}};
    int unloads_ = 0;
    std::unique_ptr<CountingSaver> form_;
};

TEST_F(frmScreenSaverTest, TheEndTimerEndsTheProgramAtOnceAndOnlyWhileItIsEnabled) {
    EXPECT_EQ(1000ms, form_->tmrEnd_.Interval());
    EXPECT_FALSE(form_->IsEndTimerEnabled());
    SendMessageW(form_->Handle(), WM_TIMER, kEndTimer, 0);
    EXPECT_EQ(0, form_->Ends);
    form_->tmrEnd_.SetEnabled(true);
    EXPECT_TRUE(form_->IsEndTimerEnabled());
    SendMessageW(form_->Handle(), WM_TIMER, kEndTimer, 0);
    EXPECT_EQ(1, form_->Ends);
    EXPECT_EQ(0, unloads_);
    EXPECT_NE(nullptr, form_->Handle());
}

// Not only with the next step of the animation, of which there may be none any more.
TEST_F(frmScreenSaverTest, TellsOtherProgramsTheLastStateOfThePanelWhenTheRunEnds) {
    settings_.Values[{L"General", L"Sets"}] = L"A";
    settings_.Values[{L"A", L"Selected"}] = L"False";
    SendMessageW(form_->Handle(), WM_TIMER, kRunTimer, 0);
    const HWND panel = GetDlgItem(form_->Handle(), static_cast<int>(PanelControl::fraStatus));
    wchar_t text[100] = L"";
    InternalGetWindowText(GetDlgItem(panel, static_cast<int>(PanelControl::lblSet)), text, 100);
    EXPECT_STREQ(L"<All sets processed>", text);
}

// What the form shows.
std::vector<std::uint32_t> PictureOf(const Window& form) {
    RECT area{};
    GetClientRect(form.Handle(), &area);
    const auto picture = PixelBuffer::Make({area.right, area.bottom});
    BitBlt(picture->DC(), 0, 0, area.right, area.bottom, WindowDC(form.Handle()).get(), 0, 0,
           SRCCOPY);
    GdiFlush();
    return {picture->Pixels().begin(), picture->Pixels().end()};
}

// How many different pictures the form shows within a second.
int PicturesInASecond(const Window& form) {
    const auto end = std::chrono::steady_clock::now() + 1s;
    std::vector<std::uint32_t> before = PictureOf(form);
    int pictures = 0;
    while (std::chrono::steady_clock::now() < end) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
        HandleWaitingMessages();
        std::vector<std::uint32_t> now = PictureOf(form);
        pictures += now == before ? 0 : 1;
        before = std::move(now);
    }
    return pictures;
}

// The steps come ten times a second. A busy machine may need several tries.
TEST_F(frmScreenSaverTest, ShowsThirtyPicturesASecond) {
    SendMessageW(form_->Handle(), WM_TIMER, kRunTimer, 0);
    int most = 0;
    for (int attempt = 0; attempt < 10 && most < 30; ++attempt) {
        most = std::max(most, PicturesInASecond(*form_));
    }
    EXPECT_GE(most, 30);
    EXPECT_LE(most, 60) << "more than anybody sees";
}

TEST_F(frmScreenSaverTest, DrawsNothingBetweenItsStepsWhileNobodySeesIt) {
    constexpr WPARAM kStepTick = 2;
    constexpr WPARAM kGlideTick = 4;
    constexpr UINT kSessionChanges = 0x02B1;
    constexpr WPARAM kLocked = 7;
    SendMessageW(form_->Handle(), WM_TIMER, kRunTimer, 0);
    SendMessageW(form_->Handle(), WM_TIMER, kStepTick, 0);
    const auto glides = [this] {
        const std::vector<std::uint32_t> before = PictureOf(*form_);
        Sleep(40);  // the way that a picture shows is a matter of time
        SendMessageW(form_->Handle(), WM_TIMER, kGlideTick, 0);
        return before != PictureOf(*form_);
    };
    EXPECT_TRUE(glides());
    SendMessageW(form_->Handle(), kSessionChanges, kLocked, 1);
    SendMessageW(form_->Handle(), WM_TIMER, kStepTick, 0);
    EXPECT_FALSE(glides());
}

TEST_F(frmScreenSaverTest, SaysOnceThatItHasUnloaded) {
    SendMessageW(form_->Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(nullptr, form_->Handle());
    EXPECT_EQ(1, unloads_);
    form_->UnloadForm();
    form_.reset();
    EXPECT_EQ(1, unloads_);
}

TEST_F(frmScreenSaverTest, GoesWithoutUnloadingWhenItsObjectDoes) {
    const HWND window = form_->Handle();
    form_.reset();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(0, unloads_);
}

// A clock that is asked in the middle of the run.
class ClockInARun : public ManualClock {
  public:
    ClockInARun() : ManualClock(DateTime{2026, 11, 22, 10, 0, 0}) {}

    DateTime Now() override {
        if (const auto call = std::exchange(FirstAsked, nullptr)) {
            call();
        }
        return ManualClock::Now();
    }

    std::function<void()> FirstAsked;
};

struct WindowDestroyer {
    void operator()(HWND window) const { DestroyWindow(window); }
};

bool LiesBefore(HWND one, HWND other) {
    HWND above = other;
    while (above != nullptr && above != one) {
        above = GetWindow(above, GW_HWNDPREV);
    }
    return above == one;
}

// When the keys are taken, the window that gets them may not be known yet.
TEST(frmScreenSaverBehindOthers, StepsBehindTheWindowThatHasTheKeysWithTheNextStepOfTheAnimation) {
    constexpr WPARAM kStepTick = 2;
    Application application;
    application.CommandLine = L"/S";
    MemoryFileSystem files;
    CopyWatch copyWatch;
    MemorySettingsStore settings;
    ClockInARun clock;
    CountingSaver form(application, files, copyWatch, settings, clock, [] {});
    form.Show();
    const std::unique_ptr<HWND__, WindowDestroyer> other(
        CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                        nullptr, nullptr, nullptr, nullptr));
    bool wasKnown = false;
    bool layBefore = false;
    bool liesBehind = false;
    clock.FirstAsked = [&] {
        SetForegroundWindow(form.Handle());
        SendMessageW(form.Handle(), WM_ACTIVATEAPP, FALSE, 0);
        SetForegroundWindow(other.get());
        wasKnown = GetForegroundWindow() == other.get();
        SetWindowPos(form.Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        layBefore = LiesBefore(form.Handle(), other.get());
        SendMessageW(form.Handle(), WM_TIMER, kStepTick, 0);
        liesBehind = LiesBefore(other.get(), form.Handle());
    };
    SendMessageW(form.Handle(), WM_TIMER, kRunTimer, 0);
    if (!wasKnown) {
        GTEST_SKIP() << "this system does not give the keys to another window of a program";
    }
    EXPECT_TRUE(layBefore);
    EXPECT_TRUE(liesBehind);
    form.UnloadForm();
}

// Shows a full-screen form on a desktop of that name and touches it; true when it can still be
// seen then.
bool StaysOn(const wchar_t* desktopName) {
    struct DesktopCloser {
        void operator()(HDESK desktop) const { CloseDesktop(desktop); }
    };
    const std::unique_ptr<HDESK__, DesktopCloser> desktop(
        CreateDesktopW(desktopName, nullptr, nullptr, 0, GENERIC_ALL, nullptr));
    bool stays = false;
    // A thread that has no window yet may change its desktop.
    std::thread([&] {
        EXPECT_NE(0, SetThreadDesktop(desktop.get()));
        Application application;
        application.CommandLine = L"/S";
        MemoryFileSystem files;
        CopyWatch copyWatch;
        MemorySettingsStore settings;
        ManualClock clock{DateTime{2026, 11, 22, 10, 0, 0}};
        CountingSaver form(application, files, copyWatch, settings, clock, [] {});
        form.Show();
        const auto isShown = [&] {
            return (GetWindowLongW(form.Handle(), GWL_STYLE) & WS_VISIBLE) != 0;
        };
        EXPECT_TRUE(isShown());
        SendMessageW(form.Handle(), WM_KEYDOWN, VK_SPACE, 1);
        stays = isShown();
    }).join();
    return stays;
}

TEST(frmScreenSaverOnADesktop, StaysWhereNothingLiesBehindIt) {
    EXPECT_TRUE(StaysOn(L"Screen-saver"));
    EXPECT_TRUE(StaysOn(L"WINLOGON"));
    EXPECT_FALSE(StaysOn(L"AmbrioOtherDesktop"));
}

}  // namespace
}  // namespace ambrio
