// A machine on which a step of the animation takes longer than the time from step to step.

#include <gtest/gtest.h>

#include <string>

#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/SystemCalls.h"

namespace ambrio::e2e {
namespace {

// Takes longer than the animation's first steps.
constexpr std::size_t kLong = 64U << 20U;

class SlowMachineTest : public SaverTest {
  protected:
    SlowMachineTest() {
        LoadIntoPrograms(SystemCalls::Module());
        calls_.SlowTheAnimation(Milliseconds(150));
        WriteOneSet();
    }

    SystemCalls calls_;
};

// The animation is at work from the large file on: the small ones alone are copied before its first
// step.
TEST_F(SlowMachineTest, TheRunMakesProgress) {
    Source.AddFile(L"large.bin", std::string(kLong, 'L'));
    Source.AddManyFiles(L"some", 10);
    Start(L"/S");
    WaitForTheEndOfTheRun(3 * kSoon);
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
    EndByKey();
}

TEST_F(SlowMachineTest, AKeyIsObeyedAfterTheFileInHand) {
    constexpr int kMany = 60;
    Source.AddManyFiles(L"many", kMany);
    RunUntilFilesAreCopied();
    PressKey(VK_SPACE);
    EXPECT_TRUE(Ends());
    EXPECT_LT(ReadTree(Destination()).size(), static_cast<std::size_t>(kMany) / 2);
}

}  // namespace
}  // namespace ambrio::e2e
