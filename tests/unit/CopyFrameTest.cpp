#include "saver/panel/CopyFrame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/windows/BackBuffer.h"
#include "platform/win32/windows/ControlSubclass.h"
#include "resources/clip/AviFile.h"
#include "saver/panel/PanelControls.h"

namespace ambrio {
namespace {

constexpr COLORREF kStart = RGB(1, 2, 3);
constexpr COLORREF kBack = RGB(10, 160, 90);
constexpr COLORREF kMark = RGB(255, 255, 255);

// A clip of white rectangles, each picture's wider than the one before, in the middle of nothing.
class Clip {
  public:
    static constexpr int kWidth = 120;
    static constexpr int kHeight = 40;
    static constexpr int kMarkHeight = 20;
    [[nodiscard]] static int MarkWidth(int picture) { return 20 + 30 * picture; }

    Clip()
        : path_(TemporaryFolder() + L"AmbrioClip" + std::to_wstring(GetCurrentProcessId()) +
                L".avi") {
        std::vector<clip::Picture> pictures;
        for (int i = 0; i < 3; ++i) {
            clip::Picture picture(kWidth, kHeight, 1);
            const double left = (kWidth - MarkWidth(i)) / 2.0;
            picture.Fill(clip::RoundedRectangle({left, 10.0}, {kWidth - left, 30.0}, 0),
                         {255, 255, 255});
            pictures.push_back(picture);
        }
        std::ofstream(path_.c_str(), std::ios::binary) << clip::AviFile(pictures, 50000);
    }
    ~Clip() { DeleteFileW(path_.c_str()); }
    Clip(const Clip&) = delete;
    Clip& operator=(const Clip&) = delete;

    [[nodiscard]] const std::wstring& Path() const { return path_; }

  private:
    // Not by std::filesystem, which brings calls into the program that nobody answers here as
    // Windows does.
    static std::wstring TemporaryFolder() {
        std::wstring folder(MAX_PATH + 1, L'\0');
        folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
        return folder;
    }

    std::wstring path_;
};

// Counts how often the animation control is told to open something.
class OpeningsOf : private ControlSubclass {
  public:
    explicit OpeningsOf(HWND control) { AttachTo(control); }
    int Count = 0;

  private:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override {
        Count += message == ACM_OPENW || message == ACM_OPENA ? 1 : 0;
        return PassOn(message, wParam, lParam);
    }
};

class CopyFrameTest : public testing::Test {
  protected:
    CopyFrameTest()
        : form_(CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_TOPMOST, L"STATIC", L"",
                                WS_POPUP | WS_VISIBLE, 0, 0, 700, 300, nullptr, nullptr, nullptr,
                                nullptr)) {}
    ~CopyFrameTest() override {
        frame_.reset();
        DestroyWindow(form_);
    }

    // The frame as the panel has it.
    void Make(int dotsPerInch) {
        const double size = dotsPerInch / 96.0;
        frame_.reset();
        frame_ = std::make_unique<CopyFrame>(
            form_, RECT{20, 10, 20 + std::lround(276 * size), 10 + std::lround(55 * size)}, size,
            kStart);
    }
    // As a run shows it for the first file that it copies.
    void ShowAsARunDoes() {
        frame_->PlayClip();
        frame_->Show(true);
        frame_->SetBackColor(kBack);
    }
    [[nodiscard]] HWND Control() const {
        return GetDlgItem(frame_->Handle(), static_cast<int>(PanelControl::Animation1));
    }

    // What is seen on the screen.
    struct Seen {
        int Colours[4] = {};  // pixels that are the back colour, black, the mark, and all others
        RECT Mark{LONG_MAX, LONG_MAX, LONG_MIN, LONG_MIN};
        [[nodiscard]] LONG MarkWidth() const { return Mark.right - Mark.left; }
        [[nodiscard]] LONG MarkHeight() const { return Mark.bottom - Mark.top; }
    };
    [[nodiscard]] Seen Look() const {
        RECT area;
        GetClientRect(frame_->Handle(), &area);
        BackBuffer picture(area.right, area.bottom);
        BitBlt(picture.DC(), 0, 0, area.right, area.bottom, WindowDC(frame_->Handle()).get(), 0, 0,
               SRCCOPY);
        Seen seen;
        for (LONG y = 0; y < area.bottom; ++y) {
            for (LONG x = 0; x < area.right; ++x) {
                const COLORREF pixel = GetPixel(picture.DC(), x, y);
                ++seen.Colours[pixel == kBack ? 0 : pixel == 0 ? 1 : pixel == kMark ? 2 : 3];
                if (pixel == kMark) {
                    seen.Mark = {std::min(seen.Mark.left, x), std::min(seen.Mark.top, y),
                                 std::max(seen.Mark.right, x + 1),
                                 std::max(seen.Mark.bottom, y + 1)};
                }
            }
        }
        return seen;
    }

    // Handles messages until the clip has a mark that wide at 96 dpi; false after some seconds.
    [[nodiscard]] bool PlaysTo(int picture) const {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (Look().MarkWidth() != Clip::MarkWidth(picture)) {
            if (std::chrono::steady_clock::now() > end) {
                return false;
            }
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
                DispatchMessageW(&message);
            }
        }
        return true;
    }

    Clip clip_;
    HWND form_;
    std::unique_ptr<CopyFrame> frame_;
};

TEST_F(CopyFrameTest, ShowsTheClipInItsSizeAndWithoutABoxRoundItAtEveryResolution) {
    for (const int dotsPerInch : {96, 120, 144, 192}) {
        SCOPED_TRACE(dotsPerInch);
        Make(dotsPerInch);
        frame_->OpenClip(clip_.Path());
        ShowAsARunDoes();
        const Seen seen = Look();
        const double size = dotsPerInch / 96.0;
        EXPECT_NEAR(seen.MarkWidth(), Clip::MarkWidth(0) * size, 2);
        EXPECT_NEAR(seen.MarkHeight(), Clip::kMarkHeight * size, 2);
        EXPECT_EQ(0, seen.Colours[1]) << "black";
        const double rim = 2 * (Clip::MarkWidth(0) + Clip::kMarkHeight) * size * 3;
        EXPECT_LE(seen.Colours[3], rim) << "neither the clip nor what it lies on";
        EXPECT_GT(seen.Colours[0], 10 * seen.Colours[2]);
    }
}

TEST_F(CopyFrameTest, ShowsTheClipInItsNewSizeWhenTheResolutionBecomesAnother) {
    Make(96);
    frame_->OpenClip(clip_.Path());
    ShowAsARunDoes();
    EXPECT_TRUE(PlaysTo(1));
    for (const int dotsPerInch : {192, 144}) {
        SCOPED_TRACE(dotsPerInch);
        const double size = dotsPerInch / 96.0;
        const RECT place{30, 15, 30 + std::lround(276 * size), 15 + std::lround(55 * size)};
        frame_->Resize(place, size);
        UpdateWindow(frame_->Handle());
        const Seen seen = Look();
        EXPECT_NEAR(seen.MarkWidth(), Clip::MarkWidth(1) * size, 2);
        EXPECT_NEAR(seen.MarkHeight(), Clip::kMarkHeight * size, 2);
        EXPECT_GT(seen.Colours[0], 5 * seen.Colours[2]) << "its own colour all round";
        EXPECT_EQ(0, seen.Colours[1]) << "black";
        RECT area{};
        GetClientRect(frame_->Handle(), &area);
        EXPECT_EQ(place.right - place.left, area.right);
        RECT control{};
        GetWindowRect(Control(), &control);
        MapWindowPoints(nullptr, frame_->Handle(), reinterpret_cast<POINT*>(&control), 2);
        EXPECT_GE(control.top, area.bottom) << "seen beside its picture";
    }
}

TEST_F(CopyFrameTest, WaitsForItsColourBeforeItIsSeen) {
    Make(96);
    frame_->OpenClip(clip_.Path());
    frame_->PlayClip();
    frame_->Show(true);
    EXPECT_TRUE(GetUpdateRect(frame_->Handle(), nullptr, FALSE)) << "not painted as yet";
    frame_->SetBackColor(kBack);
    EXPECT_FALSE(GetUpdateRect(frame_->Handle(), nullptr, FALSE)) << "painted at once";
}

TEST_F(CopyFrameTest, PlaysOnInEveryColourWithoutOpeningTheClipAnew) {
    Make(96);
    OpeningsOf openings(Control());
    frame_->OpenClip(clip_.Path());
    ShowAsARunDoes();
    EXPECT_TRUE(PlaysTo(1));
    frame_->SetBackColor(RGB(90, 10, 10));
    const Seen seen = Look();
    EXPECT_EQ(Clip::MarkWidth(1), seen.MarkWidth()) << "another picture";
    EXPECT_EQ(0, seen.Colours[0]) << "still the colour of before";
    frame_->SetBackColor(kBack);
    EXPECT_TRUE(PlaysTo(2));
    EXPECT_TRUE(PlaysTo(0)) << "from the beginning again";
    EXPECT_EQ(1, openings.Count);
    frame_->StopClip();
    frame_->CloseClip();
    EXPECT_EQ(2, openings.Count);
    UpdateWindow(frame_->Handle());
    EXPECT_EQ(0, Look().Colours[2]) << "a picture of a clip that is closed";
}

TEST_F(CopyFrameTest, ShowsNothingButItsColourWithoutAClip) {
    Make(96);
    frame_->OpenClip(L"C:\\there is no such clip.avi");
    ShowAsARunDoes();
    const Seen seen = Look();
    EXPECT_EQ(276 * 55, seen.Colours[0]);
    frame_->OpenClip(clip_.Path());
    frame_->SetBackColor(kBack);
    EXPECT_GT(Look().Colours[2], 0);
    frame_->CloseClip();
    frame_->SetBackColor(kBack);
    EXPECT_EQ(276 * 55, Look().Colours[0]);
}

// A run over many files that need no copy must not be kept busy by it.
TEST_F(CopyFrameTest, TakesNoMorePicturesOfAClipThatHasStopped) {
    constexpr UINT_PTR kPictures = 1;
    Make(96);
    frame_->OpenClip(clip_.Path());
    frame_->PlayClip();
    frame_->StopClip();
    EXPECT_FALSE(KillTimer(frame_->Handle(), kPictures)) << "it still ticked";
    frame_->PlayClip();
    EXPECT_TRUE(KillTimer(frame_->Handle(), kPictures)) << "it does not tick";
}

TEST_F(CopyFrameTest, OutlivesItsForm) {
    Make(96);
    frame_->OpenClip(clip_.Path());
    ShowAsARunDoes();
    DestroyWindow(std::exchange(form_, nullptr));
    frame_->SetBackColor(RGB(4, 5, 6));
    frame_->StopClip();
    frame_->PlayClip();
    frame_->Show(false);
    frame_->CloseClip();
}

}  // namespace
}  // namespace ambrio
