#include "saver/panel/StatusPanelView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "saver/animation/Contrast.h"
#include "tests/unit/PanelFixture.h"

namespace ambrio {
namespace {

struct Place {
    PanelControl Control;
    int Left, Top, Width, Height;
};

constexpr Place kPlaces[] = {
    {PanelControl::fraStatus, 0, 0, 6165, 2745},
    {PanelControl::zblFixed0, 120, 240, 900, 345},
    {PanelControl::lblSet, 1155, 240, 4740, 405},
    {PanelControl::zblFixed1, 120, 635, 900, 345},
    {PanelControl::lblSource, 1140, 640, 4740, 410},
    {PanelControl::zblFixed2, 120, 1030, 900, 345},
    {PanelControl::lblDest, 1140, 1040, 4740, 410},
    {PanelControl::zblFixed3, 120, 1455, 900, 345},
    {PanelControl::lblFile, 1140, 1440, 4740, 405},
    {PanelControl::zblFixed4, 120, 1920, 1035, 300},
    {PanelControl::lblChecked, 1110, 1905, 750, 300},
    {PanelControl::zblFixed5, 120, 2160, 1440, 300},
    {PanelControl::lblcopied, 1110, 2145, 750, 300},
    {PanelControl::Label2, 120, 2400, 1320, 300},
    {PanelControl::lblRemoved, 1395, 2385, 465, 300},
    {PanelControl::lblfsoStatus, 2985, 2070, 2445, 240},
    {PanelControl::Label1, 2295, 2475, 3780, 240},
    {PanelControl::fraAni, 1935, 1650, 4140, 825},
};

TEST(StatusPanelView, PutsEveryControlAtItsPlaceAtEveryResolution) {
    for (const int dotsPerInch : {96, 120, 144, 192}) {
        const Panel panel(dotsPerInch);
        const auto pixels = [dotsPerInch](int twips) {
            return std::lround(twips * dotsPerInch / 1440.0);
        };
        for (const auto& [control, left, top, width, height] : kPlaces) {
            SCOPED_TRACE(testing::Message() << static_cast<int>(control) << " at " << dotsPerInch);
            const RECT place = panel.Place(control);
            EXPECT_EQ(pixels(left), place.left);
            EXPECT_EQ(pixels(top), place.top);
            EXPECT_EQ(pixels(left + width), place.right);
            EXPECT_EQ(pixels(top + height), place.bottom);
        }
    }
}

TEST(StatusPanelView, ShowsItsDesignCaptionsBeforeTheFirstSet) {
    const struct {
        PanelControl Control;
        const wchar_t* Caption;
    } captions[] = {
        {PanelControl::fraStatus, L"Ambrio"},
        {PanelControl::zblFixed0, L"Set:"},
        {PanelControl::zblFixed1, L"Source:"},
        {PanelControl::zblFixed2, L"Destination:"},
        {PanelControl::zblFixed3, L"File:"},
        {PanelControl::zblFixed4, L"Files checked:"},
        {PanelControl::zblFixed5, L"Files copied:"},
        {PanelControl::Label2, L"Copies removed:"},
        {PanelControl::Label1, L"A slogan."},
        {PanelControl::lblSet, L"-"},
        {PanelControl::lblSource, L"-"},
        {PanelControl::lblDest, L"-"},
        {PanelControl::lblFile, L"-"},
        {PanelControl::lblChecked, L"0"},
        {PanelControl::lblcopied, L"0"},
        {PanelControl::lblRemoved, L"0"},
        {PanelControl::lblfsoStatus, L"Label3"},
    };
    const Panel panel;
    for (const auto& [control, caption] : captions) {
        EXPECT_EQ(caption, panel.Text(control));
        EXPECT_TRUE(IsWindow(panel.Control(control)));
    }
}

TEST(StatusPanelView, SetsTheCaptionOfEachLabelAndOfTheFrame) {
    const Panel panel;
    for (int i = 0; i <= static_cast<int>(PanelLabel::lblfsoStatus); ++i) {
        const auto label = static_cast<PanelLabel>(i);
        panel.View->SetCaption(label, L"caption " + std::to_wstring(i));
        EXPECT_EQ(L"caption " + std::to_wstring(i), panel.Text(ControlOf(label)));
    }
    panel.View->SetTitle(L"Ambrio v1.0");
    EXPECT_EQ(L"Ambrio v1.0", panel.Text(PanelControl::fraStatus));
}

TEST(StatusPanelView, KeepsALongPathWholeAndDrawsNoMoreThanItsBox) {
    const Panel panel;
    const BackBuffer before = panel.Picture();
    const std::wstring path = L"C:\\" + std::wstring(30000, L'M');
    panel.View->SetCaption(PanelLabel::lblSource, path);
    EXPECT_EQ(path, panel.Text(PanelControl::lblSource));
    const BackBuffer after = panel.Picture();
    const RECT box = panel.Place(PanelControl::lblSource);
    int changedInside = 0;
    for (int y = 0; y < after.Height(); ++y) {
        for (int x = 0; x < after.Width(); ++x) {
            const bool inside = x >= box.left && x < box.right && y >= box.top && y < box.bottom;
            const bool changed = GetPixel(before.DC(), x, y) != GetPixel(after.DC(), x, y);
            changedInside += inside && changed ? 1 : 0;
            ASSERT_FALSE(changed && !inside) << x << ", " << y;
        }
    }
    EXPECT_GT(changedInside, 500);
}

TEST(StatusPanelView, ShowsACaptionWithoutLeftoversOfTheOneBefore) {
    const Panel panel;
    const BackBuffer before = panel.Picture();
    for (const PanelLabel label : {PanelLabel::lblFile, PanelLabel::lblChecked,
                                   PanelLabel::lblRemoved, PanelLabel::lblfsoStatus}) {
        const std::wstring caption = panel.Text(ControlOf(label));
        panel.View->SetCaption(label, L"8888888888");
        panel.View->SetCaption(label, caption);
    }
    const BackBuffer after = panel.Picture();
    for (int y = 0; y < after.Height(); ++y) {
        for (int x = 0; x < after.Width(); ++x) {
            ASSERT_EQ(GetPixel(before.DC(), x, y), GetPixel(after.DC(), x, y)) << x << ", " << y;
        }
    }
}

// The columns of a label that change when it shows a letter, in pixels of its place.
struct Columns {
    LONG First;
    LONG Last;
};

Columns ColumnsOfLetter(const Panel& panel, PanelControl control) {
    const auto show = [&](const wchar_t* text) {
        SendMessageW(panel.Control(control), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
        return panel.Picture();
    };
    const BackBuffer before = show(L"");
    const BackBuffer after = show(L"H");
    const RECT box = panel.Place(control);
    Columns columns{box.right, box.left};
    for (LONG x = box.left; x < box.right; ++x) {
        for (LONG y = box.top; y < box.bottom; ++y) {
            if (GetPixel(before.DC(), x, y) != GetPixel(after.DC(), x, y)) {
                columns = {std::min(columns.First, x), std::max(columns.Last, x)};
            }
        }
    }
    return {columns.First - box.left, columns.Last - box.left};
}

TEST(StatusPanelView, AlignsEachLabelAsItWasDrawn) {
    constexpr LONG kNear = 4;
    const Panel panel;
    for (const Place& place : kPlaces) {
        if (place.Control == PanelControl::fraStatus || place.Control == PanelControl::fraAni) {
            continue;
        }
        SCOPED_TRACE(static_cast<int>(place.Control));
        const RECT box = panel.Place(place.Control);
        const LONG width = box.right - box.left;
        const Columns letter = ColumnsOfLetter(panel, place.Control);
        ASSERT_LT(letter.First, letter.Last);
        switch (place.Control) {
            case PanelControl::lblChecked:
            case PanelControl::lblcopied:
            case PanelControl::lblRemoved:
            case PanelControl::Label1:
                EXPECT_GE(letter.Last, width - kNear);
                break;
            case PanelControl::lblfsoStatus:
                EXPECT_NEAR(letter.First, width - 1 - letter.Last, kNear);
                break;
            default:
                EXPECT_LE(letter.First, kNear);
        }
    }
}

TEST(StatusPanelView, TakesItsColours) {
    const Panel panel;
    panel.View->SetBackColor({200, 10, 30});
    panel.View->SetLabelColours({{255, 255, 255}, {240, 240, 240}, {40, 2, 6}});
    panel.View->Redraw();
    const BackBuffer picture = panel.Picture();
    EXPECT_EQ(RGB(200, 10, 30), GetPixel(picture.DC(), 0, picture.Height() / 2));
    const RECT box = panel.Place(PanelControl::lblFile);
    EXPECT_EQ(RGB(40, 2, 6), GetPixel(picture.DC(), box.right - 1, box.top));
}

// How far a colour goes from a place on, in one direction.
int RunOf(const BackBuffer& picture, POINT at, POINT step) {
    const COLORREF colour = GetPixel(picture.DC(), at.x, at.y);
    int run = 0;
    while (GetPixel(picture.DC(), at.x + run * step.x, at.y + run * step.y) == colour) {
        ++run;
    }
    return run;
}

TEST(StatusPanelView, HasABorderAsWideOnEverySideAtEveryResolution) {
    for (const int dotsPerInch : {96, 120, 144, 168, 192}) {
        const Panel panel(dotsPerInch);
        panel.View->SetBackColor({200, 10, 30});
        panel.View->SetLabelColours({{255, 255, 255}, {240, 240, 240}, {40, 2, 6}});
        panel.View->Redraw();
        const BackBuffer picture = panel.Picture();
        const int right = picture.Width() - 1;
        const int bottom = picture.Height() - 1;
        const int middle = right / 2 + 1;
        const int wanted = RunOf(picture, {0, bottom / 2}, {1, 0});
        EXPECT_NEAR(wanted, 3 * dotsPerInch / 96.0, 0.6) << dotsPerInch;
        EXPECT_EQ(RunOf(picture, {right, bottom / 2}, {-1, 0}), wanted) << dotsPerInch;
        EXPECT_EQ(RunOf(picture, {middle, 0}, {0, 1}), wanted) << dotsPerInch;
        EXPECT_EQ(RunOf(picture, {middle, bottom}, {0, -1}), wanted) << dotsPerInch;
        // On the diagonal into a corner it is as wide too, give and take the steps of pixels.
        const int corner = static_cast<int>(11 * dotsPerInch / 96.0 * (1 - std::sqrt(0.5)));
        const int across = RunOf(picture, {corner, corner}, {1, 1});
        EXPECT_NEAR(across * std::sqrt(2.0), wanted, 2.2) << dotsPerInch;
    }
}

Colour ColourAt(const BackBuffer& picture, int x, int y) {
    const COLORREF pixel = GetPixel(picture.DC(), x, y);
    return {GetRValue(pixel), GetGValue(pixel), GetBValue(pixel)};
}

// Also where the plate has the frame's own colour, as it has on dark and on light ones.
TEST(StatusPanelView, HasABorderThatIsSeenOnEveryFrameColour) {
    for (const Colour frame : {Colour{0, 0, 0}, Colour{24, 56, 112}, Colour{60, 61, 59},
                               Colour{90, 120, 7}, Colour{250, 254, 255}}) {
        const Panel panel;
        panel.View->SetBackColor(frame);
        panel.View->SetLabelColours(LabelColoursOn(frame));
        panel.View->Redraw();
        const BackBuffer picture = panel.Picture();
        const int middle = picture.Height() / 2;
        const Colour border = ColourAt(picture, 0, middle);
        const Colour plate = ColourAt(picture, 5, middle);
        EXPECT_EQ(plate, LabelColoursOn(frame).Plate) << static_cast<int>(frame.Green);
        EXPECT_GE(ContrastRatio(border, plate), 2) << static_cast<int>(frame.Green);
        EXPECT_EQ(RunOf(picture, {0, middle}, {1, 0}), 3) << static_cast<int>(frame.Green);
    }
}

TEST(StatusPanelView, HasRoundCornersThroughWhichTheFormIsSeen) {
    for (const int dotsPerInch : {96, 192}) {
        const Panel panel(dotsPerInch);
        const UniqueRegion region(CreateRectRgn(0, 0, 0, 0));
        ASSERT_EQ(GetWindowRgn(panel.View->Handle(), region.get()), COMPLEXREGION);
        const BackBuffer picture = panel.Picture();
        const int right = picture.Width() - 1;
        const int bottom = picture.Height() - 1;
        const int clear = 2 * dotsPerInch / 96;
        for (const POINT corner :
             {POINT{clear, clear}, POINT{right - clear, clear}, POINT{clear, bottom - clear},
              POINT{right - clear, bottom - clear}}) {
            EXPECT_FALSE(PtInRegion(region.get(), corner.x, corner.y)) << corner.x;
        }
        for (const POINT side : {POINT{0, bottom / 2}, POINT{right, bottom / 2},
                                 POINT{right / 2, 0}, POINT{right / 2, bottom}}) {
            EXPECT_TRUE(PtInRegion(region.get(), side.x, side.y)) << side.x << ", " << side.y;
        }
    }
}

TEST(StatusPanelView, ShowsTheCopyFrameInTheColourItWasMatchedWith) {
    const Panel panel;
    const HWND frame = panel.Control(PanelControl::fraAni);
    const auto isVisible = [frame] { return (GetWindowLongW(frame, GWL_STYLE) & WS_VISIBLE) != 0; };
    EXPECT_FALSE(isVisible());
    const LabelColours light{{255, 255, 255}, {240, 240, 240}, {}};
    const auto onPlate = [light](Colour plate) {
        return LabelColours{light.Text, light.Caption, plate};
    };
    panel.View->SetBackColor({7, 8, 9});
    panel.View->SetLabelColours(onPlate({1, 2, 3}));
    panel.View->MatchCopyFrameColour();
    panel.View->SetLabelColours(onPlate({4, 5, 6}));
    panel.View->ShowCopyFrame(true);
    EXPECT_TRUE(isVisible());
    BackBuffer picture(1, 1);
    SendMessageW(frame, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(picture.DC()), PRF_CLIENT);
    EXPECT_EQ(RGB(1, 2, 3), GetPixel(picture.DC(), 0, 0));
    panel.View->ShowCopyFrame(false);
    EXPECT_FALSE(isVisible());
}

TEST(StatusPanelView, HidesTheCopyFrameWithItsClip) {
    const Panel panel;
    panel.View->ShowCopyFrame(true);
    panel.View->CloseClip();
    EXPECT_EQ(0, GetWindowLongW(panel.Control(PanelControl::fraAni), GWL_STYLE) & WS_VISIBLE);
}

TEST(StatusPanelView, DoesWithoutAClip) {
    const Panel panel;
    EXPECT_NE(nullptr, panel.Control(PanelControl::Animation1));
    panel.View->OpenClip(L"C:\\there is no such clip.avi");
    panel.View->PlayClip();
    panel.View->StopClip();
    panel.View->CloseClip();
}

TEST(StatusPanelView, ReportsEveryButtonAndNoMovement) {
    const Panel panel;
    for (const UINT message : {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN, WM_XBUTTONDOWN}) {
        SendMessageW(panel.View->Handle(), message, 0, MAKELPARAM(5, 5));
    }
    EXPECT_EQ(4, panel.MouseDowns);
    SendMessageW(panel.View->Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    SendMessageW(panel.View->Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(50, 50));
    EXPECT_EQ(4, panel.MouseDowns);
}

TEST(StatusPanelView, LetsThePointerThroughItsChildren) {
    const Panel panel;
    for (const Place& place : kPlaces) {
        if (place.Control != PanelControl::fraStatus) {
            EXPECT_EQ(HTTRANSPARENT,
                      SendMessageW(panel.Control(place.Control), WM_NCHITTEST, 0, 0));
        }
    }
}

TEST(StatusPanelView, MovesInTwips) {
    const Panel panel(144);
    panel.View->Move(1005, 495);
    EXPECT_EQ((TwipsRect{1005, 495, 6165, 2745}), panel.View->Place());
    const RECT place = panel.Place(PanelControl::fraStatus);
    EXPECT_EQ(101, place.left);  // 100.5
    EXPECT_EQ(50, place.top);    // 49.5
}

TEST(StatusPanelView, OutlivesItsForm) {
    Panel panel;
    panel.CloseForm();
    EXPECT_EQ(nullptr, panel.View->Handle());
    panel.View->SetCaption(PanelLabel::lblFile, L"still here");
    panel.View->SetTitle(L"Ambrio");
    panel.View->ShowCopyFrame(true);
    panel.View->ShowCopyFrame(false);
    panel.View->CloseClip();
    panel.View->Tell();
    panel.View->Move(15, 15);
}

TEST(StatusPanelView, LeavesNoHandleBehind) {
    const auto count = [](DWORD kind) { return GetGuiResources(GetCurrentProcess(), kind); };
    const auto show = [](const std::wstring& caption) {
        const Panel panel;
        panel.View->Redraw();
        panel.View->SetCaption(PanelLabel::lblFile, caption);
    };
    show(L"the first, which brings along what stays");
    const DWORD gdi = count(GR_GDIOBJECTS);
    const DWORD user = count(GR_USEROBJECTS);
    if (gdi == 0) {
        GTEST_SKIP() << "this system does not count handles (Wine)";
    }
    for (int i = 0; i < 20; ++i) {
        show(std::to_wstring(i));
    }
    EXPECT_LE(count(GR_GDIOBJECTS), gdi + 2);
    EXPECT_LE(count(GR_USEROBJECTS), user + 2);
}

}  // namespace
}  // namespace ambrio
