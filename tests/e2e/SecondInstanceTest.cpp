// Two savers at once.

#include <gtest/gtest.h>

#include <memory>

#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

class SecondInstanceTest : public SaverTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(SecondInstanceTest, EndsAtOnceWhileTheFirstGoesOn) {
    WriteOneSet();
    RunToTheEnd();
    {
        RunningProgram second(Folder.Program(), GetParam());
        EXPECT_TRUE(second.WaitForEnd());
        EXPECT_EQ(second.ExitCode(), 0U);
    }
    EXPECT_TRUE(GoesOn());
    EXPECT_EQ(Log().Blocks().size(), 1U);
    EndByKey();
}

INSTANTIATE_TEST_SUITE_P(Switches, SecondInstanceTest,
                         testing::Values(L"/S", L"/s", L"/D", L"/d", L"/Sxyz"));

class ForeignWindowTest : public SaverTest {};

struct WindowDestroyer {
    void operator()(HWND window) const { DestroyWindow(window); }
};

TEST_F(ForeignWindowTest, AnyTopLevelWindowWithTheTitleKeepsTheSaverFromStarting) {
    const std::unique_ptr<HWND__, WindowDestroyer> foreign(CreateWindowExW(
        0, L"STATIC", kSaverTitle, WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr));
    ASSERT_NE(foreign, nullptr);
    Start(L"/S");
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Program().ExitCode(), 0U);
    EXPECT_FALSE(Log().Exists());
}

}  // namespace
}  // namespace ambrio::e2e
