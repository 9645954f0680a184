#include "saver/form/BlackWindows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/win32/windows/Monitors.h"
#include "saver/form/frmScreenSaver.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {
namespace {

// What the mouse did to a form at (100, 50) that reaches to (300, 250).
class ListeningForm : public Window {
  public:
    struct Heard {
        UINT Message;
        int X;
        int Y;
        bool operator==(const Heard&) const = default;
    };

    ListeningForm() {
        WindowDesign design;
        design.ClassName = L"AmbrioListeningForm";
        design.Style = WS_POPUP | WS_VISIBLE;
        design.ExtendedStyle = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
        design.Left = 100;
        design.Top = 50;
        design.Width = 200;
        design.Height = 200;
        Create(design);
    }
    ~ListeningForm() override { Destroy(); }

    std::vector<Heard> Mouse;

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) {
            Mouse.push_back(
                {message, static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
            return 0;
        }
        return Window::Receive(message, wParam, lParam);
    }
};

BOOL CALLBACK AddBlackWindow(HWND window, LPARAM data) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId() && std::wstring(name) == L"AmbrioBlackWindow") {
        reinterpret_cast<std::vector<HWND>*>(data)->push_back(window);
    }
    return TRUE;
}

std::vector<HWND> AllBlackWindows() {
    std::vector<HWND> found;
    EnumWindows(AddBlackWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}

Area PlaceOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    return {place.left, place.top, place.right, place.bottom};
}

bool IsTopmost(HWND window) {
    return (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

TEST(BlackWindows, CoverTheirPlacesAsLongAsTheFormIsSeen) {
    const ListeningForm form;
    BlackWindows black(form);
    const std::vector<Area> places{{0, 0, 100, 250}, {310, 10, 400, 90}};
    black.Cover(places);
    const std::vector<HWND> windows = AllBlackWindows();
    ASSERT_EQ(2U, windows.size());
    for (const HWND window : windows) {
        EXPECT_EQ(1, std::count(places.begin(), places.end(), PlaceOf(window)));
        EXPECT_TRUE(IsWindowVisible(window));
        UpdateWindow(window);
        EXPECT_EQ(RGB(0, 0, 0), GetPixel(WindowDC(window).get(), 3, 3));
    }
    black.Show(false);
    EXPECT_FALSE(IsWindowVisible(windows.front()));
    EXPECT_FALSE(IsWindowVisible(windows.back()));
    black.Cover({});
    EXPECT_TRUE(AllBlackWindows().empty());
}

TEST(BlackWindows, StayHiddenWithAHiddenForm) {
    const ListeningForm form;
    ShowWindow(form.Handle(), SW_HIDE);
    BlackWindows black(form);
    black.Cover(std::vector<Area>{{0, 0, 50, 50}});
    ASSERT_EQ(1U, AllBlackWindows().size());
    EXPECT_FALSE(IsWindowVisible(AllBlackWindows().front()));
}

TEST(BlackWindows, PassOnWhatTheMouseDoesAndTakeNoKeys) {
    ListeningForm form;
    BlackWindows black(form);
    black.Cover(std::vector<Area>{{10, 20, 90, 220}});
    const HWND window = AllBlackWindows().at(0);
    form.Mouse.clear();
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(7, 9));
    SendMessageW(window, WM_XBUTTONDOWN, 0, MAKELPARAM(70, 150));
    SendMessageW(window, WM_MOUSEWHEEL, 0, MAKELPARAM(33, 44));
    MSG message;
    while (PeekMessageW(&message, form.Handle(), WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE) != FALSE) {
        DispatchMessageW(&message);
    }
    using Heard = ListeningForm::Heard;
    EXPECT_EQ((std::vector<Heard>{{WM_MOUSEMOVE, 10 + 7 - 100, 20 + 9 - 50},
                                  {WM_XBUTTONDOWN, 10 + 70 - 100, 20 + 150 - 50},
                                  {WM_MOUSEWHEEL, 33, 44}}),
              form.Mouse);
    EXPECT_EQ(MA_NOACTIVATE, SendMessageW(window, WM_MOUSEACTIVATE, 0, 0));
}

TEST(BlackWindows, ShareTheLayerOfTheForm) {
    const ListeningForm form;
    BlackWindows black(form);
    black.SetTopmost(true);
    black.Cover(std::vector<Area>{{10, 20, 90, 220}});
    EXPECT_TRUE(IsTopmost(AllBlackWindows().at(0)));
    black.SetTopmost(false);
    EXPECT_FALSE(IsTopmost(AllBlackWindows().at(0)));
    black.StepBehind(form.Handle());
    EXPECT_EQ(AllBlackWindows().at(0), GetWindow(form.Handle(), GW_HWNDNEXT));
}

TEST(MonitorPlaces, BeginWithThePrimaryOneAndMakeUpTheDesktop) {
    const std::vector<RECT> places = MonitorPlaces();
    RECT all{};
    bool hasPrimary = false;
    for (const RECT& place : places) {
        UnionRect(&all, &all, &place);
        hasPrimary = hasPrimary || (place.left == 0 && place.top == 0);
    }
    EXPECT_TRUE(hasPrimary);
    EXPECT_EQ(GetSystemMetrics(SM_CXVIRTUALSCREEN), all.right - all.left);
    EXPECT_EQ(GetSystemMetrics(SM_CYVIRTUALSCREEN), all.bottom - all.top);
    EXPECT_EQ(GetSystemMetrics(SM_CMONITORS), static_cast<int>(places.size()));
}

// The form, on monitors that are only pretended.
class SaverOnMonitors : public frmScreenSaver {
  public:
    using frmScreenSaver::frmScreenSaver;
    std::vector<RECT> Places;

  protected:
    [[nodiscard]] std::vector<RECT> Monitors() const override { return Places; }
};

class MonitorsTest : public testing::Test {
  protected:
    void Show(const wchar_t* commandLine, const std::vector<RECT>& monitors) {
        application_.Title = L"Ambrio";
        application_.CommandLine = commandLine;
        form_ = std::make_unique<SaverOnMonitors>(application_, files_, copyWatch_, settings_,
                                                  clock_, [] {});
        form_->Places = monitors;
        form_->Show();
    }
    ~MonitorsTest() override {
        form_.reset();
        while (ShowCursor(TRUE) < 0) {
        }
    }

    Application application_;
    MemoryFileSystem files_;
    CopyWatch copyWatch_;
    MemorySettingsStore settings_;
    ManualClock clock_{DateTime{2026, 11, 21, 10, 0, 0}};
    std::unique_ptr<SaverOnMonitors> form_;
};

TEST_F(MonitorsTest, WhatTheFormDoesNotReachIsBlackAndNothingElse) {
    const LONG width = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const LONG height = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    Show(L"/S", {{0, 0, width, height}, {-640, 100, 0, 580}, {20, -480, 660, 0}});
    EXPECT_EQ((Area{0, 0, width, height}), PlaceOf(form_->Handle())) << "the form stays as it is";
    std::vector<HWND> black = AllBlackWindows();
    ASSERT_EQ(2U, black.size());
    for (const HWND window : black) {
        const Area place = PlaceOf(window);
        EXPECT_TRUE((place == Area{-640, 100, 0, 580}) || (place == Area{20, -480, 660, 0}))
            << place.Left << ", " << place.Top;
        EXPECT_TRUE(IsTopmost(window));
        EXPECT_TRUE(IsWindowVisible(window));
    }
    // A monitor is taken away.
    form_->Places.pop_back();
    SendMessageW(form_->Handle(), WM_DISPLAYCHANGE, 32, 0);
    black = AllBlackWindows();
    ASSERT_EQ(1U, black.size());
    EXPECT_EQ((Area{-640, 100, 0, 580}), PlaceOf(black.front()));
    ShowWindow(form_->Handle(), SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(black.front()));
    form_->LeaveTopmost();
    EXPECT_FALSE(IsTopmost(black.front()));
    SendMessageW(form_->Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(AllBlackWindows().empty()) << "left behind by the form";
}

TEST_F(MonitorsTest, AnOrdinaryWindowLeavesOtherMonitorsAlone) {
    Show(L"/D", {{0, 0, 800, 600}, {-640, 100, 0, 580}});
    EXPECT_TRUE(AllBlackWindows().empty());
    SendMessageW(form_->Handle(), WM_DISPLAYCHANGE, 32, 0);
    EXPECT_TRUE(AllBlackWindows().empty());
}

}  // namespace
}  // namespace ambrio
