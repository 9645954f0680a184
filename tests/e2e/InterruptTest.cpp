// The user comes back: what ends the saver during and after a run, and what does not.

#include <gtest/gtest.h>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/HeldFiles.h"
#include "tests/e2e/support/NameOf.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

// A run in the midst of which something happens: it stands still in a large file, some files after
// its beginning and before its end, until the test has seen that the form has taken notice.
class InterruptTest : public SaverTest {
  protected:
    InterruptTest() {
        LoadIntoPrograms(HeldFiles::Module());
        const std::wstring tree = Tree();
        Settings.WriteSets({{L"Many", tree, Destination()}, {L"Next", tree, Destination()}});
    }

    static void SetUpTestSuite() {
        if (!FolderExists(Tree())) {
            TestTree tree(Tree());
            tree.AddManyFiles(L"before", kFilesBefore);
            tree.AddFile(L"before\\then\\held.bin", std::string(2U << 20U, 'H'));
            tree.AddManyFiles(L"before\\then\\after", 40);
        }
    }
    static void TearDownTestSuite() { RemoveTree(Tree()); }

    static constexpr int kFilesBefore = 50;

    static std::wstring Tree() {
        static const std::wstring folder =
            TemporaryFolder() + L"\\AmbrioMany" + std::to_wstring(GetCurrentProcessId());
        return folder;
    }

    WindowProbe RunIntoTheMidst(const std::wstring& arguments = L"/S") {
        Start(arguments);
        const WindowProbe saver = Saver();
        EXPECT_TRUE(files_.WaitUntilHeld());
        const PanelProbe panel(saver);
        EXPECT_TRUE(
            WaitUntil([&] { return panel.Number(PanelControl::lblcopied) == kFilesBefore; }));
        return saver;
    }
    // The form gives the desktop back or, where it stays, asks for patience. The program must then
    // end by itself, without a box, and say in its log that it was interrupted.
    void ExpectInterrupted(const WindowProbe& saver) {
        EXPECT_TRUE(WaitUntil([&] { return !saver.IsVisible() || !WaitPlateText(saver).empty(); }))
            << "the form takes no notice";
        EXPECT_TRUE(Program().IsRunning()) << "in the midst of a file";
        files_.GoOn();
        ASSERT_TRUE(Ends());
        EXPECT_EQ(Program().ExitCode(), 0U);
        // Neither the folder below nor the next Set is begun.
        const std::wstring copied = std::to_wstring(kFilesBefore + 1);
        EXPECT_EQ(LatestBlock(), Block({L"'Many' start", L"'Many' complete",
                                        L"Of " + copied + L" files checked, " + copied +
                                            L" were copied; 0 copies were removed."},
                                       L" interrupted "));
        constexpr std::size_t kFolders = 2;
        EXPECT_EQ(ReadTree(Destination()).size(), kFolders + kFilesBefore + 1);
    }

    HeldFiles files_;
};

// A place where the form itself lies under the pointer, not the panel: one of its corners.
POINT FreePlaceOn(const WindowProbe& form) {
    constexpr int kInside = 6;
    RECT client{};
    GetClientRect(form.Handle(), &client);
    POINT place{};
    for (const POINT corner :
         {POINT{client.right - kInside, client.bottom - kInside},
          POINT{kInside, client.bottom - kInside}, POINT{client.right - kInside, kInside}}) {
        place = corner;
        ClientToScreen(form.Handle(), &place);
        if (WindowFromPoint(place) == form.Handle()) {
            return place;
        }
    }
    ADD_FAILURE() << "the panel covers the whole form";
    return place;
}

// What a user can do to the saver.
struct Touch {
    const char* Name;
    void (*Do)(const PanelProbe& panel);
};

void PrintTo(const Touch& touch, std::ostream* out) {
    *out << touch.Name;
}

const Touch kTouches[] = {
    {"AKey", [](const PanelProbe&) { PressKey('A'); }},
    {"TheEscapeKey", [](const PanelProbe&) { PressKey(VK_ESCAPE); }},
    {"AFunctionKey", [](const PanelProbe&) { PressKey(VK_F5); }},
    // These two come as keys of the system's menu.
    {"TheAltKey", [](const PanelProbe&) { PressKey(VK_MENU); }},
    {"TheMenuKeyF10", [](const PanelProbe&) { PressKey(VK_F10); }},
    {"TheLeftButton", [](const PanelProbe&) { Click(MouseButton::Left); }},
    {"TheRightButton", [](const PanelProbe&) { Click(MouseButton::Right); }},
    {"TheMiddleButton", [](const PanelProbe&) { Click(MouseButton::Middle); }},
    {"TheBackButton", [](const PanelProbe&) { Click(MouseButton::Back); }},
    {"TheForwardButton", [](const PanelProbe&) { Click(MouseButton::Forward); }},
    {"AWheel", [](const PanelProbe&) { TurnWheel(); }},
    {"AWheelToTheSide", [](const PanelProbe&) { TurnWheelToTheSide(); }},
    {"AMoveToTheSide", [](const PanelProbe&) { MovePointerBy(3, 0); }},
    {"AMoveDownwards", [](const PanelProbe&) { MovePointerBy(0, 3); }},
    {"AMoveBothWays", [](const PanelProbe&) { MovePointerBy(-2, -2); }},
    {"AClickOnThePanel", [](const PanelProbe& panel) { ClickAt(panel.Centre()); }},
};

class TouchTest : public InterruptTest, public testing::WithParamInterface<Touch> {};

TEST_P(TouchTest, StopsTheRunWhichThenEndsTheSaver) {
    const WindowProbe saver = RunIntoTheMidst();
    GetParam().Do(PanelProbe(saver));
    ExpectInterrupted(saver);
}

TEST_P(TouchTest, EndsTheSaverAfterTheRun) {
    Settings.WriteSets({});
    Start(L"/S");
    EXPECT_TRUE(WaitUntil([this] { return LatestBlock().size() == 6; }));
    GetParam().Do(Panel());
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Program().ExitCode(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Touches, TouchTest, testing::ValuesIn(kTouches), NameOf());

TEST_F(InterruptTest, MovingThePointerOverThePanelEndsNothing) {
    // The panel starts in this corner, so the pointer is never seen over the form.
    SetCursorPos(60, 60);
    Settings.WriteSets({});
    Start(L"/S");
    const PanelProbe panel = Panel();
    EXPECT_TRUE(WaitUntil([this] { return LatestBlock().size() == 6; }));
    POINT centre = panel.Centre();
    for (int i = 0; i < 5; ++i) {
        MovePointerTo({centre.x + i, centre.y - i});
    }
    EXPECT_TRUE(GoesOn());
    Click();
    EXPECT_TRUE(Ends());
}

TEST_F(InterruptTest, TheFirstMoveOverTheFormOnlyRecordsThePlace) {
    Settings.WriteSets({});
    // Far from the window, which is no full screen this time.
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 2, GetSystemMetrics(SM_CYSCREEN) - 2);
    Start(L"/D");
    const RECT window = Saver().Rectangle();
    POINT pointer{};
    GetCursorPos(&pointer);
    if (PtInRect(&window, pointer) != 0) {
        EndByKey();
        GTEST_SKIP() << "the window reaches into the corner of this small screen";
    }
    EXPECT_TRUE(WaitUntil([this] { return LatestBlock().size() == 6; }));
    const POINT place = FreePlaceOn(Saver());
    MovePointerTo(place);
    EXPECT_TRUE(GoesOn());
    MovePointerTo({place.x + 1, place.y});
    EXPECT_TRUE(Ends());
}

TEST_F(InterruptTest, AKeyBeforeTheFirstTickStopsTheRunBeforeItsFirstSet) {
    // The key must come within the 150 ms before the run starts. Whether it did shows in the
    // panel's title, which the run sets first of all; on a busy machine it may take several tries.
    for (int attempt = 0; attempt < 10; ++attempt) {
        Start(L"/S");
        const WindowProbe saver = Saver();
        saver.Post(WM_KEYDOWN, VK_SPACE, 1);
        const bool inTime = PanelProbe(saver).Title() == kPanelDesignTitle;
        ASSERT_TRUE(Ends());
        if (inTime) {
            EXPECT_EQ(LatestBlock(),
                      Block({L"Of 0 files checked, 0 were copied; 0 copies were removed."},
                            L" interrupted "));
            EXPECT_FALSE(FolderExists(Destination()));
            return;
        }
    }
    FAIL() << "the key never came before the first tick";
}

TEST_F(InterruptTest, AfterAnInterruptedRunTheNextOneCopiesTheRest) {
    const WindowProbe saver = RunIntoTheMidst();
    PressKey(VK_SPACE);
    ExpectInterrupted(saver);
    RunToTheEnd();
    EndByKey();
    EXPECT_TRUE(SameTree(ReadTree(Tree()), ReadTree(Destination())));
}

// The system's own ways of ending a program.
struct Closing {
    const char* Name;
    const wchar_t* Arguments;
    UINT Message;
};

void PrintTo(const Closing& closing, std::ostream* out) {
    *out << closing.Name;
}

class ClosingTest : public InterruptTest, public testing::WithParamInterface<Closing> {};

TEST_P(ClosingTest, StopsTheRunInOrder) {
    const WindowProbe saver = RunIntoTheMidst(GetParam().Arguments);
    if (GetParam().Message == WM_QUERYENDSESSION) {
        static_cast<void>(saver.Send(WM_QUERYENDSESSION));
    } else {
        saver.Post(GetParam().Message, SC_CLOSE);
    }
    ExpectInterrupted(saver);
}

INSTANTIATE_TEST_SUITE_P(Closings, ClosingTest,
                         testing::Values(Closing{"TheCloseBox", L"/D", WM_SYSCOMMAND},
                                         Closing{"ARequestToCloseTheWindow", L"/D", WM_CLOSE},
                                         Closing{"ARequestToCloseTheFullScreen", L"/S", WM_CLOSE},
                                         Closing{"TheEndOfTheSession", L"/S", WM_QUERYENDSESSION}),
                         NameOf());

}  // namespace
}  // namespace ambrio::e2e
