// A large file takes long to copy; the program answers the system all the while.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

constexpr std::size_t kLarge = 160U << 20U;

class StayResponsiveTest : public SaverTest {
  protected:
    StayResponsiveTest() {
        Source.AddFile(L"large.bin", std::string(kLarge, 'L'));
        WriteOneSet();
    }

    // Starts the run and waits until the large file is being copied.
    void RunUntilTheLargeFileIsCopied() {
        Start(L"/S");
        const PanelProbe panel = Panel();
        ASSERT_TRUE(WaitUntil(
            [&] { return panel.Caption(PanelControl::lblFile) == L"large.bin - copying"; }));
    }
};

TEST_F(StayResponsiveTest, AnswersAndAnimatesWhileALargeFileIsCopied) {
    RunUntilTheLargeFileIsCopied();
    const WindowProbe saver = Saver();
    const PanelProbe panel = Panel();
    EXPECT_TRUE(panel.IsVisible(PanelControl::fraAni));
    ULONGLONG longest = 0;
    int answers = 0;
    do {
        const ULONGLONG asked = GetTickCount64();
        ASSERT_TRUE(saver.Send(WM_NULL)) << "no answer for seconds";
        longest = std::max(longest, GetTickCount64() - asked);
        ++answers;
        EXPECT_EQ(IsHungAppWindow(saver.Handle()), 0);
    } while (!panel.ShowsTheEndOfTheRun());
    EXPECT_LT(longest, 1000U);
    EXPECT_GT(answers, 2) << "the window answered only when the copy was done";
    EXPECT_FALSE(panel.IsVisible(PanelControl::fraAni));
    EndByKey();
}

TEST_F(StayResponsiveTest, FinishesTheFileThatIsBeingCopiedWhenAKeyIsPressed) {
    RunUntilTheLargeFileIsCopied();
    PressKey(VK_SPACE);
    EXPECT_TRUE(Ends());
    const TreeFacts copies = ReadTree(Destination());
    ASSERT_EQ(copies.size(), 1U);
    EXPECT_EQ(copies.begin()->first, L"large.bin");
    EXPECT_EQ(copies.begin()->second.Size, kLarge);
}

}  // namespace
}  // namespace ambrio::e2e
