// Who the saver believes to be before the screen, told by messages as the system sends them.

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "platform/win32/windows/BackBuffer.h"
#include "saver/form/frmScreenSaver.h"
#include "saver/panel/PanelControls.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {
namespace {

constexpr WPARAM kDoTheBizTimer = 1;
constexpr WPARAM kAnimationTimer = 2;
constexpr UINT kSessionChange = 0x02B1;
constexpr WPARAM kPowerSettingChange = 0x8013;

constexpr GUID kSessionDisplays = {
    0x2b84c20e, 0xad23, 0x4ddf, {0x93, 0xdb, 0x05, 0xff, 0xbd, 0x7e, 0xfc, 0xa5}};
constexpr GUID kMonitor = {
    0x02731015, 0x4510, 0x4526, {0x99, 0xe6, 0xe5, 0xa1, 0x7e, 0xbd, 0x1a, 0xea}};
constexpr GUID kLid = {
    0xba3e0f4d, 0xb817, 0x4094, {0xa2, 0xd1, 0xd5, 0x63, 0x79, 0xe6, 0xa0, 0xf3}};

struct PowerSetting {
    GUID Setting;
    DWORD Length;
    DWORD State;
};

// A form in an ordinary window, whose timers tick when the test says so.
class AudienceTest : public testing::Test {
  protected:
    AudienceTest() {
        GetCursorPos(&pointer_);
        application_.Title = L"Ambrio";
        application_.CommandLine = L"/D";
        application_.PixelTwipsX = 15;
        application_.PixelTwipsY = 15;
        form_ = std::make_unique<frmScreenSaver>(application_, files_, copyWatch_, settings_,
                                                 clock_, [this] { ++unloads_; });
        form_->Show();
    }
    ~AudienceTest() override { SetCursorPos(pointer_.x, pointer_.y); }

    void Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        SendMessageW(form_->Handle(), message, wParam, lParam);
    }
    void SendPower(const GUID& setting, DWORD state) const {
        const PowerSetting power{setting, sizeof(DWORD), state};
        Send(WM_POWERBROADCAST, kPowerSettingChange, reinterpret_cast<LPARAM>(&power));
    }
    // The pointer is at this place of the form and the form gets a message of that.
    void MoveOver(int x, int y) const {
        POINT place{x, y};
        ClientToScreen(form_->Handle(), &place);
        SetCursorPos(place.x, place.y);
        Send(WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
    }
    // The same over the panel, of which only the system's question for the cursor tells the form.
    void MoveOverThePanel(int x, int y) const {
        POINT place{x, y};
        ClientToScreen(form_->Handle(), &place);
        SetCursorPos(place.x, place.y);
        SendMessageW(Panel(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Panel()),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        SendMessageW(Panel(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    }
    [[nodiscard]] bool IsAskedToEnd() const { return unloads_ > 0; }
    void RunToTheEnd() const { Send(WM_TIMER, kDoTheBizTimer); }

    [[nodiscard]] HWND Panel() const {
        return GetDlgItem(form_->Handle(), static_cast<int>(PanelControl::fraStatus));
    }
    // What the panel looks like.
    [[nodiscard]] std::vector<COLORREF> Picture() const {
        RECT area{};
        GetClientRect(Panel(), &area);
        const BackBuffer buffer(area.right, area.bottom);
        SendMessageW(Panel(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(buffer.DC()), PRF_CLIENT);
        std::vector<COLORREF> pixels;
        for (int y = 0; y < area.bottom; ++y) {
            for (int x = 0; x < area.right; ++x) {
                pixels.push_back(GetPixel(buffer.DC(), x, y));
            }
        }
        return pixels;
    }
    // Whether the animation draws: its steps move the panel.
    [[nodiscard]] bool Animates() const {
        RECT before{};
        RECT after{};
        GetWindowRect(Panel(), &before);
        for (int i = 0; i < 10; ++i) {
            Send(WM_TIMER, kAnimationTimer);
        }
        GetWindowRect(Panel(), &after);
        return EqualRect(&before, &after) == FALSE;
    }

    POINT pointer_{};
    Application application_;
    MemoryFileSystem files_;
    CopyWatch copyWatch_;
    MemorySettingsStore settings_;
    ManualClock clock_{DateTime{2026, 11, 21, 10, 0, 0}};
    int unloads_ = 0;
    std::unique_ptr<frmScreenSaver> form_;
};

TEST_F(AudienceTest, NothingIsDrawnWhileTheSessionIsLockedOrAway) {
    RunToTheEnd();
    EXPECT_TRUE(Animates());
    for (const auto& [goes, comes] : {std::pair<WPARAM, WPARAM>{2, 1}, {4, 3}, {7, 8}}) {
        SCOPED_TRACE(goes);
        Send(kSessionChange, goes, 1);
        EXPECT_FALSE(Animates());
        Send(kSessionChange, comes, 1);
        EXPECT_TRUE(Animates());
    }
    EXPECT_FALSE(IsAskedToEnd());
}

TEST_F(AudienceTest, NothingIsDrawnWhileTheDisplaysAreOff) {
    RunToTheEnd();
    for (const GUID& setting : {kMonitor, kSessionDisplays}) {
        SendPower(setting, 0);
        EXPECT_FALSE(Animates());
        SendPower(setting, 2);  // dimmed
        EXPECT_TRUE(Animates());
        SendPower(setting, 0);
        SendPower(setting, 1);
        EXPECT_TRUE(Animates());
    }
    SendPower(kLid, 0);
    EXPECT_TRUE(Animates());
    EXPECT_FALSE(IsAskedToEnd());
}

TEST_F(AudienceTest, ANoticeThatAnotherProgramMakesUpDoesNoHarm) {
    RunToTheEnd();
    Send(WM_POWERBROADCAST, kPowerSettingChange, 16);
    Send(WM_POWERBROADCAST, kPowerSettingChange, 0);
    const PowerSetting strange{kMonitor, 1000, 0};
    Send(WM_POWERBROADCAST, kPowerSettingChange, reinterpret_cast<LPARAM>(&strange));
    Send(kSessionChange, 4711, 1);
    EXPECT_TRUE(Animates());
}

TEST_F(AudienceTest, TheRunGoesOnUnseenAndIsShownAfterwards) {
    const std::vector<COLORREF> before = Picture();
    Send(kSessionChange, 7, 1);
    RunToTheEnd();
    EXPECT_EQ(before, Picture());
    Send(kSessionChange, 8, 1);
    EXPECT_NE(before, Picture());
    EXPECT_TRUE(Animates());
}

TEST_F(AudienceTest, AMoveWithoutMotionEndsNothingWhenThePanelHasLeftThePointer) {
    RunToTheEnd();
    MoveOver(300, 400);
    MoveOverThePanel(60, 70);
    MoveOver(60, 70);
    EXPECT_FALSE(IsAskedToEnd());
    MoveOver(60, 71);
    EXPECT_TRUE(IsAskedToEnd());
}

TEST_F(AudienceTest, AMoveWithoutMotionEndsNothingWhenTheWindowIsMoved) {
    RunToTheEnd();
    MoveOver(300, 400);
    RECT place{};
    GetWindowRect(form_->Handle(), &place);
    SetWindowPos(form_->Handle(), nullptr, place.left - 20, place.top - 30, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    Send(WM_MOUSEMOVE, 0, MAKELPARAM(320, 430));
    EXPECT_FALSE(IsAskedToEnd());
    Send(WM_MOUSEMOVE, 0, MAKELPARAM(321, 430));
    EXPECT_TRUE(IsAskedToEnd());
}

TEST_F(AudienceTest, WhereTheSystemPutsThePointerForANewDisplayEndsNothing) {
    RunToTheEnd();
    MoveOver(300, 400);
    Send(WM_DISPLAYCHANGE, 32, MAKELPARAM(640, 480));
    MoveOver(150, 200);
    EXPECT_FALSE(IsAskedToEnd());
    MoveOver(150, 201);
    EXPECT_TRUE(IsAskedToEnd());
}

TEST_F(AudienceTest, WhereThePointerIsAfterTheSessionWasLockedEndsNothing) {
    RunToTheEnd();
    MoveOver(300, 400);
    Send(kSessionChange, 7, 1);
    Send(kSessionChange, 8, 1);
    MoveOver(150, 200);
    EXPECT_FALSE(IsAskedToEnd());
    MoveOver(151, 200);
    EXPECT_TRUE(IsAskedToEnd());
}

// A wheel, a pen, a finger.
class PressTest : public AudienceTest, public testing::WithParamInterface<UINT> {};

TEST_P(PressTest, OnTheFormEndsTheSaver) {
    RunToTheEnd();
    Send(GetParam());
    EXPECT_TRUE(IsAskedToEnd());
}

TEST_P(PressTest, OnThePanelEndsTheSaver) {
    RunToTheEnd();
    SendMessageW(Panel(), GetParam(), 0, 0);
    EXPECT_TRUE(IsAskedToEnd());
}

// The panel leaves these to the system, which gives them to the form.
TEST_F(AudienceTest, AFingerOnTheFormEndsTheSaverBeforeWindows8Too) {
    RunToTheEnd();
    Send(WM_GESTURE);
    EXPECT_TRUE(IsAskedToEnd());
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, PressTest,
                         testing::Values(WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN,
                                         WM_XBUTTONDOWN, WM_MOUSEWHEEL, WM_MOUSEHWHEEL, 0x0246U,
                                         0x024EU, 0x024FU));

}  // namespace
}  // namespace ambrio
