// Full screen and ordinary window: place, layer and pointer.

#include <gtest/gtest.h>

#include "tests/e2e/support/HeldFiles.h"
#include "tests/e2e/support/NameOf.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

struct ModeCase {
    const char* Name;
    const wchar_t* Arguments;
    bool FullScreen;
    bool PointerHidden;
};

void PrintTo(const ModeCase& mode, std::ostream* out) {
    *out << mode.Name;
}

class ModeTest : public SaverTest, public testing::WithParamInterface<ModeCase> {
  protected:
    ModeTest() {
        LoadIntoPrograms(HeldFiles::Module());
        Source.AddFile(L"held.bin", std::string(2U << 20U, 'h'));
        Source.AddManyFiles(L"many", 20);
        WriteOneSet();
    }

    HeldFiles Files;
};

TEST_P(ModeTest, PlacesTheWindowAndThePointerDuringAndAfterTheRun) {
    const ModeCase& mode = GetParam();
    Start(mode.Arguments);
    const WindowProbe saver = Saver();
    EXPECT_TRUE(Files.WaitUntilHeld());
    EXPECT_EQ(saver.IsTopmost(), mode.FullScreen);
    EXPECT_EQ(saver.ShowsPointer(), !mode.PointerHidden);

    const RECT place = saver.Rectangle();
    const int width = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const int height = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    if (mode.FullScreen) {
        EXPECT_EQ(place.left, 0);
        EXPECT_EQ(place.top, 0);
        EXPECT_EQ(place.right, width);
        EXPECT_EQ(place.bottom, height);
    } else {
        EXPECT_LT(place.right - place.left, width);
        EXPECT_LT(place.bottom - place.top, height);
    }

    Files.GoOn();
    // The run ends all the same, and leaves the layer and the pointer to others.
    const PanelProbe panel = Panel();
    EXPECT_TRUE(WaitUntil([&] { return panel.ShowsTheEndOfTheRun(); }));
    EXPECT_FALSE(saver.IsTopmost());
    EXPECT_TRUE(saver.ShowsPointer());
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
    EndByKey();
}

INSTANTIATE_TEST_SUITE_P(Modes, ModeTest,
                         testing::Values(ModeCase{"FullScreen", L"/S", true, true},
                                         ModeCase{"FullScreenInSmallLetters", L"/s", true, true},
                                         ModeCase{"Window", L"/D", false, false},
                                         ModeCase{"WindowInSmallLetters", L"/d", false, true},
                                         ModeCase{"FullScreenForALongerLine", L"/D now", true,
                                                  true}),
                         NameOf());

// The full screen becomes another one.
class DisplayChangeTest : public SaverTest {
  protected:
    // Starts the saver, makes its window smaller than it is and tells it that the display has
    // changed; then its size.
    SIZE SizeAfterTheChange(const wchar_t* arguments) {
        WriteOneSet();
        RunToTheEnd(arguments);
        const WindowProbe saver = Saver();
        SetWindowPos(saver.Handle(), nullptr, 0, 0, kSmall.cx, kSmall.cy,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        EXPECT_TRUE(saver.Send(WM_DISPLAYCHANGE, 32, MAKELPARAM(640, 480)));
        const RECT place = saver.Rectangle();
        EndByKey();
        return {place.right - place.left, place.bottom - place.top};
    }

    static constexpr SIZE kSmall{300, 200};
};

TEST_F(DisplayChangeTest, IsCoveredAnew) {
    const SIZE size = SizeAfterTheChange(L"/S");
    EXPECT_EQ(size.cx, GetSystemMetrics(SM_CXVIRTUALSCREEN));
    EXPECT_EQ(size.cy, GetSystemMetrics(SM_CYVIRTUALSCREEN));
}

TEST_F(DisplayChangeTest, LeavesAnOrdinaryWindowAsItIs) {
    const SIZE size = SizeAfterTheChange(L"/D");
    EXPECT_EQ(size.cx, kSmall.cx);
    EXPECT_EQ(size.cy, kSmall.cy);
}

class PanelPlaceTest : public SaverTest {};

TEST_F(PanelPlaceTest, ThePanelStaysWithinTheWindowWhileItMoves) {
    Start(L"/S");
    const PanelProbe panel = Panel();
    const RECT start = panel.Rectangle();
    // It begins to move with the run.
    EXPECT_TRUE(WaitUntil([&] {
        const RECT now = panel.Rectangle();
        return now.left != start.left || now.top != start.top;
    }));
    const RECT form = Saver().Rectangle();
    const RECT now = panel.Rectangle();
    EXPECT_GE(now.left, form.left);
    EXPECT_GE(now.top, form.top);
    EXPECT_LE(now.right, form.right);
    EXPECT_LE(now.bottom, form.bottom);
    EndByKey();
}

}  // namespace
}  // namespace ambrio::e2e
