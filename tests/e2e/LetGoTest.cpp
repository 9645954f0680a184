// The user comes back in the middle of a copy that takes long: the desktop is theirs at once, and
// the run goes to its end behind it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/HeldFiles.h"
#include "tests/e2e/support/NameOf.h"
#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio::e2e {
namespace {

constexpr std::size_t kHeldSize = 2U << 20U;
constexpr ULONGLONG kAtOnce = 100;  // ms

class LetGoTest : public SaverTest {
  protected:
    LetGoTest() {
        LoadIntoPrograms(HeldFiles::Module());
        Source.AddFile(L"held.bin", std::string(kHeldSize, 'L'));
        WriteOneSet();
    }

    // Starts the run and waits until it is in the middle of the large file.
    WindowProbe RunIntoTheLargeFile(const std::wstring& arguments = L"/S") {
        Start(arguments);
        const WindowProbe saver = Saver();
        EXPECT_TRUE(files_.WaitUntilHeld());
        return saver;
    }
    // Lets the copy end, and the run with it.
    void ExpectTheRunToEndWell(const std::wstring& copy = L"held.bin") {
        files_.GoOn();
        ASSERT_TRUE(Ends());
        EXPECT_EQ(Program().ExitCode(), 0U);
        const Lines block = LatestBlock();
        ASSERT_GE(block.size(), 2U);
        EXPECT_EQ(block[block.size() - 2], std::wstring(L"Ambrio interrupted ") + kNow);
        EXPECT_EQ(ReadTree(Destination())[copy].Size, kHeldSize);
    }

    HeldFiles files_;
};

// How the user may come back.
struct Comeback {
    const char* Name;
    void (*Do)();
};

void PrintTo(const Comeback& comeback, std::ostream* out) {
    *out << comeback.Name;
}

class LetGoAtATouchTest : public LetGoTest, public testing::WithParamInterface<Comeback> {};

// On a busy machine this test itself may be kept waiting, so the best of a few tries counts.
TEST_P(LetGoAtATouchTest, GivesTheDesktopBackAtOnceWhileTheRunGoesOn) {
    ULONGLONG least = ~0ULL;
    for (int attempt = 0; attempt < 5 && least > kAtOnce; ++attempt) {
        RemoveTree(Destination());
        const WindowProbe saver = RunIntoTheLargeFile();
        ASSERT_TRUE(saver.IsVisible());
        EXPECT_FALSE(saver.ShowsPointer());
        const ULONGLONG touched = GetTickCount64();
        GetParam().Do();
        ASSERT_TRUE(WaitUntil([&] { return !saver.IsVisible() && saver.ShowsPointer(); }));
        least = std::min(least, GetTickCount64() - touched);
        EXPECT_TRUE(saver.Exists());
        EXPECT_TRUE(GoesOn()) << "the run has not gone on";
        ExpectTheRunToEndWell();
        files_.HoldAgain();
    }
    EXPECT_LE(least, kAtOnce);
}

INSTANTIATE_TEST_SUITE_P(Touches, LetGoAtATouchTest,
                         testing::Values(Comeback{"AKey", [] { PressKey(VK_SPACE); }},
                                         Comeback{"AButton", [] { Click(); }},
                                         Comeback{"AMove", [] { MovePointerBy(5, 7); }}),
                         NameOf());

TEST_F(LetGoTest, EveryRemainingFolderHandsOverItsFirstFileAllTheSame) {
    TestTree tree(Source.PathOf(L"tree"));
    tree.AddFile(L"a\\held.bin", std::string(kHeldSize, 'T'));
    for (const wchar_t* file : {L"b\\1.txt", L"b\\2.txt", L"c\\d\\1.txt", L"c\\d\\2.txt"}) {
        tree.AddFile(file, "text");
    }
    Settings.WriteSets({{L"Tree", tree.Root(), Destination()}});
    const WindowProbe saver = RunIntoTheLargeFile();
    PressKey(VK_SPACE);
    ASSERT_TRUE(WaitUntil([&] { return !saver.IsVisible(); }));
    ExpectTheRunToEndWell(L"a\\held.bin");
    const TreeFacts copies = ReadTree(Destination());
    EXPECT_TRUE(copies.contains(L"b\\1.txt") && copies.contains(L"c\\d\\1.txt"));
    EXPECT_FALSE(copies.contains(L"b\\2.txt") || copies.contains(L"c\\d\\2.txt"));
}

TEST_F(LetGoTest, AnotherSaverThatStartsMeanwhileFindsTheWindowAndEnds) {
    const WindowProbe saver = RunIntoTheLargeFile();
    PressKey(VK_SPACE);
    ASSERT_TRUE(WaitUntil([&] { return !saver.IsVisible(); }));
    {
        const RunningProgram second(Folder.Program(), L"/S");
        EXPECT_TRUE(second.WaitForEnd());
        EXPECT_EQ(second.ExitCode(), 0U);
    }
    EXPECT_TRUE(GoesOn());
    ExpectTheRunToEndWell();
    EXPECT_EQ(Log().Blocks().size(), 1U);
}

TEST_F(LetGoTest, ANewScreenResolutionDoesNotBringTheFormBack) {
    const WindowProbe saver = RunIntoTheLargeFile();
    PressKey(VK_SPACE);
    ASSERT_TRUE(WaitUntil([&] { return !saver.IsVisible(); }));
    EXPECT_TRUE(saver.Send(WM_DISPLAYCHANGE, 32, MAKELPARAM(800, 600)));
    EXPECT_FALSE(saver.IsVisible());
    ExpectTheRunToEndWell();
}

// What the user does meanwhile: a window with the focus, over the whole screen.
class WorkOfTheUser {
  public:
    WorkOfTheUser()
        : window_(CreateWindowExW(0, L"STATIC", L"Other work", WS_POPUP | WS_VISIBLE, 0, 0,
                                  GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN),
                                  nullptr, nullptr, nullptr, nullptr)) {
        SetForegroundWindow(window_);
    }
    ~WorkOfTheUser() { DestroyWindow(window_); }
    WorkOfTheUser(const WorkOfTheUser&) = delete;
    WorkOfTheUser& operator=(const WorkOfTheUser&) = delete;

    [[nodiscard]] HWND Handle() const { return window_; }

  private:
    HWND window_;
};

TEST_F(LetGoTest, TheSummaryOfFailuresComesToTheFrontWhenTheRunEnds) {
    Settings.WriteSets({{L"Missing", Source.PathOf(L"missing"), Destination()},
                        {L"Documents", Source.Root(), Destination()}});
    const WindowProbe saver = RunIntoTheLargeFile();
    PressKey(VK_SPACE);
    ASSERT_TRUE(WaitUntil([&] { return !saver.IsVisible(); }));
    const WorkOfTheUser other;
    files_.GoOn();
    const MessageBoxProbe box = WaitForBox();
    const auto inFront = [&] {
        return GetAncestor(WindowFromPoint(box.Window().Centre()), GA_ROOT) ==
               box.Window().Handle();
    };
    EXPECT_TRUE(WaitUntil(inFront)) << "the box lies behind the user's window";
    EXPECT_EQ(box.Title(), L"Ambrio execution errors");
    EXPECT_FALSE(saver.IsVisible());
    EXPECT_TRUE(box.Press());
    EXPECT_TRUE(Ends());
}

// A form that stays, as nothing lies behind it or nothing of it may be seen.
class StaysTest : public LetGoTest {
  protected:
    static std::wstring ExpectedText() {
        return L"Please wait while the current file is copied...\nheld.bin\n" +
               std::to_wstring(kHeldPercent) + L" %";
    }
    static bool AsksForPatience(const WindowProbe& saver) {
        return WaitUntil([&] { return WaitPlateText(saver) == ExpectedText(); });
    }
};

TEST_F(StaysTest, AnOrdinaryWindowStaysAndAsksToWait) {
    const WindowProbe saver = RunIntoTheLargeFile(L"/D");
    EXPECT_EQ(WaitPlateText(saver), L"");
    PressKey(VK_SPACE);
    EXPECT_TRUE(AsksForPatience(saver));
    EXPECT_TRUE(saver.IsVisible());
    ExpectTheRunToEndWell();
}

// How many colours are to be seen in a window: more than two where letters are smoothed.
std::size_t ColoursIn(const RECT& place) {
    std::set<COLORREF> colours;
    const HDC screen = GetDC(nullptr);
    for (int y = place.top; y < place.bottom; ++y) {
        for (int x = place.left; x < place.right; x += 3) {
            colours.insert(GetPixel(screen, x, y));
        }
    }
    ReleaseDC(nullptr, screen);
    return colours.size();
}

TEST_F(StaysTest, ThePlateIsDrawnInTheMiddleOverEverythingElse) {
    const WindowProbe saver = RunIntoTheLargeFile(L"/D");
    PressKey(VK_SPACE);
    ASSERT_TRUE(AsksForPatience(saver));
    const WindowProbe plate = saver.ControlsOfClass(kWaitPlateClass).at(0);
    RECT form{};
    GetClientRect(saver.Handle(), &form);
    POINT middle{form.right / 2, form.bottom / 2};
    ClientToScreen(saver.Handle(), &middle);
    EXPECT_LE(std::abs(plate.Centre().x - middle.x), 1);
    EXPECT_LE(std::abs(plate.Centre().y - middle.y), 1);
    EXPECT_GE(ColoursIn(plate.Rectangle()), 3U) << "background, border and letters";
    EXPECT_EQ(GetWindow(saver.Handle(), GW_CHILD), plate.Handle()) << "something lies over it";
    ExpectTheRunToEndWell();
}

// As OldFamilyPasswordTest makes the program believe.
class StaysForAPasswordTest : public StaysTest {
  protected:
    StaysForAPasswordTest()
        : version_(L"Software\\Wine\\AppDefaults\\Ambrio.scr"),
          usePassword_(L"Control Panel\\Desktop", kUsePassword) {}

    void SetUp() override {
        if (!RunsOnWine()) {
            GTEST_SKIP() << "this system cannot pretend to be of the Windows 9x family";
        }
        WriteText(version_.Path(), L"Version", L"win98");
    }

    static constexpr const wchar_t* kUsePassword = L"ScreenSaveUsePassword";
    RegistryTreeGuard version_;
    RegistryValueGuard usePassword_;
};

TEST_F(StaysForAPasswordTest, UntilItIsAskedFor) {
    WriteNumber(L"Control Panel\\Desktop", kUsePassword, 1);
    const WindowProbe saver = RunIntoTheLargeFile();
    PressKey(VK_SPACE);
    EXPECT_TRUE(AsksForPatience(saver));
    EXPECT_TRUE(saver.IsVisible());
    EXPECT_FALSE(saver.ShowsPointer());
    ExpectTheRunToEndWell();  // there is no module here that would ask
}

TEST_F(StaysForAPasswordTest, ButNotWhereNoneIsUsed) {
    WriteNumber(L"Control Panel\\Desktop", kUsePassword, 0);
    const WindowProbe saver = RunIntoTheLargeFile();
    PressKey(VK_SPACE);
    EXPECT_TRUE(WaitUntil([&] { return !saver.IsVisible(); }));
    ExpectTheRunToEndWell();
}

}  // namespace
}  // namespace ambrio::e2e
