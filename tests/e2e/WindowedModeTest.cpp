// Full screen and ordinary window: place, layer and pointer.

#include <gtest/gtest.h>

#include "tests/e2e/support/NameOf.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

// Whether the pointer is shown over the windows of that window's thread.
bool IsPointerShown(const WindowProbe& window) {
    const DWORD other = GetWindowThreadProcessId(window.Handle(), nullptr);
    // The pointer's state belongs to the threads that share their input.
    AttachThreadInput(GetCurrentThreadId(), other, TRUE);
    CURSORINFO info{};
    info.cbSize = sizeof info;
    GetCursorInfo(&info);
    AttachThreadInput(GetCurrentThreadId(), other, FALSE);
    return (info.flags & CURSOR_SHOWING) != 0;
}

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
        Source.AddManyFiles(L"many", 200);
        WriteOneSet();
    }
};

TEST_P(ModeTest, PlacesTheWindowAndThePointerDuringAndAfterTheRun) {
    const ModeCase& mode = GetParam();
    RunUntilFilesAreCopied(mode.Arguments);
    const WindowProbe saver = Saver();
    EXPECT_EQ(saver.IsTopmost(), mode.FullScreen);
    EXPECT_EQ(IsPointerShown(saver), !mode.PointerHidden);

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

    // The run ends all the same, and leaves the layer and the pointer to others.
    const PanelProbe panel = Panel();
    EXPECT_TRUE(WaitUntil([&] { return panel.ShowsTheEndOfTheRun(); }));
    EXPECT_FALSE(saver.IsTopmost());
    EXPECT_TRUE(IsPointerShown(saver));
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
