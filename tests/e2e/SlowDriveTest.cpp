// A server that does not answer for a long time. The drive that everything lies on passes for one.

#include <gtest/gtest.h>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/HeldFiles.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

class SlowDriveTest : public SaverTest {
  protected:
    SlowDriveTest() {
        SetEnvironmentVariableW(kServerDrive, Folder.Path().substr(0, 2).c_str());
        LoadIntoPrograms(HeldFiles::Module());
    }
    ~SlowDriveTest() override { SetEnvironmentVariableW(kServerDrive, nullptr); }

    HeldFiles files_;
};

TEST_F(SlowDriveTest, TheFormAnswersAndLetsGoWhileAServerDoesNot) {
    const std::wstring asleep = Folder.Below(L"asleep");
    Source.AddFile(L"file.txt", "text");
    Settings.WriteSets({{L"Documents", Source.Root(), asleep}});
    Start(L"/S");
    const WindowProbe saver = Saver();
    ASSERT_TRUE(files_.WaitUntilHeld());
    EXPECT_TRUE(saver.Send(WM_NULL)) << "no answer for seconds";
    PressKey(VK_SPACE);
    EXPECT_TRUE(WaitUntil([&] { return !saver.IsVisible(); }));
    EXPECT_TRUE(GoesOn());
    files_.GoOn();
    EXPECT_TRUE(Ends());
    EXPECT_EQ(ReadFileBytes(asleep + L"\\file.txt"), "text");
    const Lines block = LatestBlock();
    ASSERT_GE(block.size(), 2U);
    EXPECT_EQ(block[block.size() - 2], std::wstring(L"Ambrio interrupted ") + kNow);
}

TEST_F(SlowDriveTest, ARunOverAServerCopiesAsAnyOther) {
    Source.AddFile(L"a.txt", "one").AddFile(L"sub\\b.txt", "two").AddFolder(L"empty");
    Source.AddManyFiles(L"many", 80);
    WriteOneSet();
    Start(L"/S");
    WaitForTheEndOfTheRun(6 * kSoon);  // changing threads takes time on a busy machine
    EndByKey();
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
}

}  // namespace
}  // namespace ambrio::e2e
