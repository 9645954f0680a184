// The panel when its form comes to a monitor of another resolution.

#include <gtest/gtest.h>

#include <string>

#include "saver/animation/Contrast.h"
#include "tests/unit/PanelFixture.h"

namespace ambrio {
namespace {

constexpr Colour kFrame{24, 56, 112};

// What a run may show.
void Fill(const Panel& panel) {
    panel.View->SetTitle(L"Ambrio v7.6");
    panel.View->SetBackColor(kFrame);
    panel.View->SetLabelColours(LabelColoursOn(kFrame));
    panel.View->SetCaption(PanelLabel::lblSet, L"Photographs");
    panel.View->SetCaption(PanelLabel::lblSource, L"C:\\" + std::wstring(90, L'p'));
    panel.View->SetCaption(PanelLabel::lblChecked, L"1284");
    panel.View->SetCaption(PanelLabel::lblfsoStatus, L"");
    panel.View->Redraw();
}

void Rescale(const Panel& panel, int dotsPerInch) {
    panel.View->Rescale(TwipsPerPixel(dotsPerInch), TwipsPerPixel(dotsPerInch));
}

int DifferentPixels(const BackBuffer& one, const BackBuffer& other) {
    int different = 0;
    for (int y = 0; y < one.Height(); ++y) {
        for (int x = 0; x < one.Width(); ++x) {
            different += GetPixel(one.DC(), x, y) == GetPixel(other.DC(), x, y) ? 0 : 1;
        }
    }
    return different;
}

void ExpectToBeAlike(const Panel& one, const Panel& other) {
    const auto last = static_cast<int>(PanelControl::Animation1);
    for (int id = static_cast<int>(PanelControl::lblSet); id <= last; ++id) {
        const RECT place = one.Place(static_cast<PanelControl>(id));
        const RECT wanted = other.Place(static_cast<PanelControl>(id));
        EXPECT_TRUE(EqualRect(&place, &wanted)) << id << ": " << place.left << ", " << place.top
                                                << ", " << place.right << ", " << place.bottom;
    }
    const UniqueRegion region(CreateRectRgn(0, 0, 0, 0));
    const UniqueRegion wanted(CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(GetWindowRgn(one.View->Handle(), region.get()), COMPLEXREGION);
    EXPECT_EQ(GetWindowRgn(other.View->Handle(), wanted.get()), COMPLEXREGION);
    EXPECT_TRUE(EqualRgn(region.get(), wanted.get())) << "other corners";
    EXPECT_EQ(0, DifferentPixels(one.Picture(), other.Picture()));
}

struct Change {
    int From;
    int To;
};

class PanelResolutionTest : public testing::TestWithParam<Change> {};

TEST_P(PanelResolutionTest, IsAsIfItHadBeenMadeForTheNewOne) {
    const Panel panel(GetParam().From);
    Fill(panel);
    panel.View->Move(1005, 495);
    Rescale(panel, GetParam().To);
    const Panel wanted(GetParam().To);
    Fill(wanted);
    wanted.View->Move(1005, 495);
    ExpectToBeAlike(panel, wanted);

    for (const Panel* each : {&panel, &wanted}) {
        each->View->SetCaption(PanelLabel::lblFile, L"the next one.txt - copying");
        each->View->SetCaption(PanelLabel::lblChecked, L"1285");
        each->View->ShowCopyFrame(true);
        each->View->Move(2010, 1500);
    }
    ExpectToBeAlike(panel, wanted);
}

std::string NameOfChange(const testing::TestParamInfo<Change>& info) {
    return "From" + std::to_string(info.param.From) + "To" + std::to_string(info.param.To);
}

INSTANTIATE_TEST_SUITE_P(Monitors, PanelResolutionTest,
                         testing::Values(Change{96, 144}, Change{192, 120}), NameOfChange);

// What the screen shows of a window.
BackBuffer ScreenOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    BackBuffer picture(area.right, area.bottom);
    BitBlt(picture.DC(), 0, 0, area.right, area.bottom, WindowDC(window).get(), 0, 0, SRCCOPY);
    return picture;
}

// On the screen, where a panel shows what is new of it at once and without asking the system.
TEST(PanelOnAScreen, ShowsAllOfItselfAtTheNewResolutionAndNothingOverTheCopyFrame) {
    const Panel panel(96);
    Fill(panel);
    panel.ShowForm();
    panel.View->ShowCopyFrame(true);
    Rescale(panel, 144);
    const HWND copyFrame = panel.Control(PanelControl::fraAni);
    UpdateWindow(copyFrame);
    const BackBuffer copyFrameBefore = ScreenOf(copyFrame);
    panel.View->SetCaption(PanelLabel::lblfsoStatus, L"building file list ...");  // below it
    panel.View->SetCaption(PanelLabel::lblFile, std::wstring(80, L'W'));          // beside it
    EXPECT_EQ(0, DifferentPixels(copyFrameBefore, ScreenOf(copyFrame)));

    const BackBuffer screen = ScreenOf(panel.View->Handle());
    const BackBuffer picture = panel.Picture();
    ASSERT_EQ(picture.Width(), 617);
    ASSERT_EQ(picture.Height(), 275);
    const RECT covered = panel.Place(PanelControl::fraAni);
    const UniqueRegion corners(CreateRectRgn(0, 0, 0, 0));
    GetWindowRgn(panel.View->Handle(), corners.get());
    int different = 0;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            if (PtInRect(&covered, {x, y}) == FALSE && PtInRegion(corners.get(), x, y) != FALSE) {
                different += GetPixel(screen.DC(), x, y) == GetPixel(picture.DC(), x, y) ? 0 : 1;
            }
        }
    }
    EXPECT_EQ(0, different);
}

TEST(PanelWithoutAForm, TakesAnotherResolutionAllTheSame) {
    Panel panel;
    panel.CloseForm();
    Rescale(panel, 144);
    panel.View->SetCaption(PanelLabel::lblFile, L"still here");
    panel.View->ShowCopyFrame(true);
    panel.View->CloseClip();
    EXPECT_EQ(nullptr, panel.View->Handle());
}

}  // namespace
}  // namespace ambrio
