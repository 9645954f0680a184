#include "saver/form/WaitPlate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "platform/win32/windows/BackBuffer.h"
#include "platform/win32/windows/ControlSubclass.h"
#include "platform/win32/windows/ScreenTwips.h"
#include "platform/win32/windows/WindowText.h"
#include "saver/animation/Contrast.h"

namespace ambrio {
namespace {

// What a plate is told by the system and its owner while this lives.
class MessagesOf : private ControlSubclass {
  public:
    explicit MessagesOf(HWND window) { AttachTo(window); }
    int Texts = 0;
    int Paintings = 0;

  private:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override {
        Texts += message == WM_SETTEXT ? 1 : 0;
        Paintings += message == WM_PAINT ? 1 : 0;
        return PassOn(message, wParam, lParam);
    }
};

class WaitPlateTest : public testing::Test {
  protected:
    WaitPlateTest() { Make(600, 400); }
    ~WaitPlateTest() override { CloseForm(); }

    void Make(int width, int height) {
        CloseForm();
        form_ = CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_TOPMOST, L"STATIC", L"",
                                WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, width, height,
                                nullptr, nullptr, nullptr, nullptr);
        plate_ = std::make_unique<WaitPlate>(form_);
    }
    void CloseForm() {
        plate_.reset();
        if (form_ != nullptr) {
            DestroyWindow(form_);
        }
    }

    [[nodiscard]] RECT Place() const {
        RECT place{};
        GetWindowRect(plate_->Handle(), &place);
        return place;
    }
    [[nodiscard]] bool IsShown() const { return IsWindowVisible(plate_->Handle()) != FALSE; }

    HWND form_ = nullptr;
    std::unique_ptr<WaitPlate> plate_;
};

TEST_F(WaitPlateTest, IsThereWhileThereIsSomethingToSay) {
    EXPECT_FALSE(IsShown());
    plate_->Say(L"Please wait");
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(L"Please wait", WindowText(plate_->Handle()));
    plate_->Say(L"");
    EXPECT_FALSE(IsShown());
    EXPECT_EQ(L"", WindowText(plate_->Handle()));
}

// It is asked ten times a second to say how far a copy is.
TEST_F(WaitPlateTest, DrawsTheSameTextOnce) {
    plate_->Say(L"10 %");
    const MessagesOf messages(plate_->Handle());
    plate_->Say(L"10 %");
    EXPECT_EQ(0, messages.Texts + messages.Paintings);
    plate_->Say(L"11 %");
    EXPECT_EQ(1, messages.Texts);
    EXPECT_EQ(1, messages.Paintings);
}

TEST_F(WaitPlateTest, LetsInputThrough) {
    plate_->Say(L"Please wait");
    EXPECT_EQ(HTTRANSPARENT, SendMessageW(plate_->Handle(), WM_NCHITTEST, 0, MAKELPARAM(300, 200)));
}

TEST_F(WaitPlateTest, LiesInTheMiddleOfTheForm) {
    plate_->Say(L"Please wait");
    const RECT place = Place();
    EXPECT_NEAR(place.left + place.right, 600, 1);
    EXPECT_NEAR(place.top + place.bottom, 400, 1);
}

// A form may reach over several monitors, whose edges meet in its middle.
TEST_F(WaitPlateTest, LiesInTheMiddleOfThePrimaryMonitorWhereTheFormIsLarger) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    Make(width + 700, height + 500);
    plate_->Say(L"Please wait");
    const RECT place = Place();
    EXPECT_NEAR(place.left + place.right, width, 1);
    EXPECT_NEAR(place.top + place.bottom, height, 1);
}

TEST_F(WaitPlateTest, IsNoLargerThanTheForm) {
    Make(200, 30);
    plate_->Say(std::wstring(300, L'W') + L"\n\n\n");
    const RECT place = Place();
    EXPECT_EQ(place.right - place.left, 200);
    EXPECT_EQ(place.bottom - place.top, 30);
}

TEST_F(WaitPlateTest, IsWrittenInLettersThatStandOut) {
    plate_->Say(L"HHHHHHHH");
    RECT area{};
    GetClientRect(plate_->Handle(), &area);
    const WindowDC screen(plate_->Handle());
    const auto colourAt = [&screen](LONG x, LONG y) {
        const COLORREF pixel = GetPixel(screen.get(), x, y);
        return Colour{GetRValue(pixel), GetGValue(pixel), GetBValue(pixel)};
    };
    const Colour ground = colourAt(4, 4);
    double most = 1;
    for (LONG x = 4; x < area.right - 4; ++x) {
        most = std::max(most, ContrastRatio(ground, colourAt(x, area.bottom / 2)));
    }
    EXPECT_GE(most, kReadableContrast);
    EXPECT_GE(ContrastRatio(ground, colourAt(0, area.bottom / 2)), kVisibleContrast) << "no border";
}

TEST_F(WaitPlateTest, GrowsWithTheResolution) {
    plate_->Say(L"Please wait");
    const RECT before = Place();
    plate_->SetResolution(DotsPerInchOf(form_) * 2);
    const RECT now = Place();
    EXPECT_NEAR(now.bottom - now.top, 2 * (before.bottom - before.top), 4);
    EXPECT_NEAR(now.right - now.left, 2 * (before.right - before.left), 16);
    EXPECT_NEAR(now.left + now.right, 600, 1);
    EXPECT_NEAR(now.top + now.bottom, 400, 1);
    plate_->Say(L"");
    plate_->SetResolution(DotsPerInchOf(form_));
    EXPECT_FALSE(IsShown());
    plate_->Say(L"Please wait");
    const RECT again = Place();
    EXPECT_TRUE(EqualRect(&again, &before));
}

TEST_F(WaitPlateTest, OutlivesItsForm) {
    plate_->Say(L"Please wait");
    DestroyWindow(form_);
    form_ = nullptr;
    plate_->SetResolution(192);
    plate_->Say(L"still waiting");
    EXPECT_EQ(nullptr, plate_->Handle());
}

}  // namespace
}  // namespace ambrio
