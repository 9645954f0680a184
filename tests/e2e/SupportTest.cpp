// The tools of the end-to-end tests, tried on things whose outcome is known.

#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <vector>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/Holdings.h"
#include "tests/e2e/support/LogText.h"
#include "tests/e2e/support/MessageBoxProbe.h"
#include "tests/e2e/support/Registry.h"
#include "tests/e2e/support/RunningProgram.h"
#include "tests/e2e/support/TestTree.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

class FolderOfItsOwn : public testing::Test {
  protected:
    ~FolderOfItsOwn() override { RemoveTree(root_); }

    const std::wstring root_ =
        TemporaryFolder() + L"\\AmbrioSupport" + std::to_wstring(GetCurrentProcessId());
};

TEST_F(FolderOfItsOwn, HoldsTreesThatAreComparedByContentTimeAndAttributes) {
    TestTree left(root_ + L"\\left");
    TestTree right(root_ + L"\\right");
    for (TestTree* tree : {&left, &right}) {
        tree->AddFile(L"a.txt", "one", 100).AddFile(L"sub\\b.txt", "two", 100).AddFolder(L"empty");
    }
    EXPECT_TRUE(SameTree(ReadTree(left.Root()), ReadTree(right.Root())));

    const auto differs = [&] {
        return !SameTree(ReadTree(left.Root()), ReadTree(right.Root())) &&
               !SameTree(ReadTree(right.Root()), ReadTree(left.Root()));
    };
    right.AddFile(L"a.txt", "eno", 100);
    EXPECT_TRUE(differs()) << "another content";
    right.AddFile(L"a.txt", "one", 200);
    EXPECT_TRUE(differs()) << "another time";
    right.AddFile(L"a.txt", "one", 100, FILE_ATTRIBUTE_HIDDEN);
    EXPECT_TRUE(differs()) << "another attribute";
    right.AddFile(L"a.txt", "one", 100).AddFile(L"c.txt", "three", 100);
    EXPECT_TRUE(differs()) << "one file more";
}

TEST_F(FolderOfItsOwn, MakesAndRemovesPathsBeyondTheClassicLimit) {
    std::wstring deep = root_;
    while (deep.size() < 400) {
        deep += L"\\" + std::wstring(60, L'\u65e5');
    }
    MakeFolders(deep);
    WriteFileBytes(deep + L"\\file.txt", "deep");
    EXPECT_EQ(ReadFileBytes(deep + L"\\file.txt"), "deep");
    SetFileAttributesOf(deep + L"\\file.txt", FILE_ATTRIBUTE_READONLY);
    RemoveTree(root_);
    EXPECT_FALSE(FolderExists(root_));
}

TEST_F(FolderOfItsOwn, HoldsALogThatIsCutIntoRuns) {
    MakeFolders(root_);
    const std::string date = Utf8(PresentTime());
    const std::string separator(42, '~');
    const std::string run = separator + "\r\nAmbrio start " + date +
                            "\r\n'A' start\r\nAmbrio ended " + date + "\r\n" + separator + "\r\n";
    WriteFileBytes(root_ + L"\\log", run + run);
    const std::vector<Lines> blocks = LogText(root_ + L"\\log").Blocks();
    EXPECT_EQ(blocks, std::vector<Lines>(2, Block({L"'A' start"}, L" ended ")));
}

TEST(RegistryTreeGuard, PutsBackWhatWasThereEvenAfterAKilledTest) {
    const std::wstring path = std::wstring(kTestKey) + L"\\Guarded";
    WriteText(path + L"\\Section", L"Key", L"old");
    {
        const RegistryTreeGuard guard(path);
        EXPECT_FALSE(KeyExists(path));
        WriteText(path + L"\\Section", L"Key", L"of the killed test");
        // As if the first guard had never come to its end.
        const RegistryTreeGuard next(path);
        WriteText(path + L"\\Section", L"Key", L"of the next test");
    }
    EXPECT_EQ(ReadText(path + L"\\Section", L"Key"), L"old");
    RemoveKeyTree(kTestKey);
}

TEST(RegistryValueGuard, PutsBackAValueOfAnyTypeOrItsAbsence) {
    const std::wstring path = std::wstring(kTestKey) + L"\\Guarded";
    WriteNumber(path, L"Number", 7);
    {
        const RegistryValueGuard number(path, L"Number");
        const RegistryValueGuard absent(path, L"Absent");
        WriteText(path, L"Number", L"text");
        WriteText(path, L"Absent", L"text");
    }
    EXPECT_EQ(ReadNumber(path, L"Number"), 7U);
    EXPECT_EQ(ValueNames(path).size(), 1U);
    RemoveKeyTree(kTestKey);
}

TEST(RunningProgram, ReportsTheEndAndTheCommandLineOfTheStandInSaver) {
    RunningProgram program(TestProgramFolder() + L"\\StandInSaver.scr", L"/S  as typed");
    ASSERT_TRUE(program.WaitForEnd());
    EXPECT_EQ(program.ExitCode(), 0U);
    EXPECT_EQ(program.ProcessCount(), 0U);
    const std::wstring line = ReadText(kStandInKey, kSaverCommandLine).value_or(L"");
    EXPECT_TRUE(line.ends_with(L"StandInSaver.scr\" /S  as typed"));
    RemoveKeyTree(kTestKey);
}

// Asked by its number, this process is one like any other.
TEST(Holdings, CountMemoryThatIsWrittenTo) {
    constexpr SIZE_T kSize = SIZE_T{32} << 20U;
    constexpr SIZE_T kTolerance = SIZE_T{2} << 20U;
    const Holdings before = HoldingsOf(GetCurrentProcessId());
    void* const memory = VirtualAlloc(nullptr, kSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    ASSERT_NE(memory, nullptr);
    std::memset(memory, 1, kSize);
    const Holdings during = HoldingsOf(GetCurrentProcessId());
    VirtualFree(memory, 0, MEM_RELEASE);
    const Holdings after = HoldingsOf(GetCurrentProcessId());
    for (const auto figure : {&Holdings::PrivateBytes, &Holdings::WorkingSet}) {
        EXPECT_GE(during.*figure, before.*figure + kSize - kTolerance);
        EXPECT_LE(during.*figure, before.*figure + kSize + kTolerance);
        EXPECT_LE(after.*figure, before.*figure + kTolerance);
    }
}

TEST(Holdings, CountOpenHandles) {
    const DWORD before = HoldingsOf(GetCurrentProcessId()).Handles;
    {
        std::vector<UniqueHandle> events;
        for (int i = 0; i < 100; ++i) {
            events.emplace_back(CreateEventW(nullptr, FALSE, FALSE, nullptr));
        }
        EXPECT_EQ(HoldingsOf(GetCurrentProcessId()).Handles, before + 100);
    }
    EXPECT_EQ(HoldingsOf(GetCurrentProcessId()).Handles, before);
}

struct BoxCase {
    UINT Style;
    BoxIcon Icon;
    std::size_t Buttons;
};

class MessageBoxProbeTest : public testing::TestWithParam<BoxCase> {};

TEST_P(MessageBoxProbeTest, ReadsTitleTextIconAndButtons) {
    int answer = 0;
    std::thread shower([&answer] {
        answer = MessageBoxW(nullptr, L"A text\r\nof two lines", L"A title",
                             GetParam().Style | MB_SETFOREGROUND);
    });
    const std::optional<MessageBoxProbe> box = MessageBoxProbe::Wait(GetCurrentProcessId());
    if (box) {
        EXPECT_EQ(box->Title(), L"A title");
        EXPECT_EQ(box->Text(), L"A text\r\nof two lines");
        EXPECT_EQ(box->Icon(), GetParam().Icon);
        EXPECT_EQ(box->ButtonTexts().size(), GetParam().Buttons);
        EXPECT_TRUE(box->Press());
    }
    shower.join();
    EXPECT_TRUE(box.has_value());
    EXPECT_TRUE(answer == IDOK || answer == IDYES);
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, MessageBoxProbeTest,
    testing::Values(BoxCase{MB_OK, BoxIcon::None, 1},
                    BoxCase{MB_OK | MB_ICONSTOP, BoxIcon::CriticalStop, 1},
                    BoxCase{MB_OK | MB_ICONEXCLAMATION, BoxIcon::Exclamation, 1},
                    BoxCase{MB_OK | MB_ICONINFORMATION, BoxIcon::Information, 1},
                    BoxCase{MB_YESNO | MB_ICONQUESTION, BoxIcon::Question, 2}));

}  // namespace
}  // namespace ambrio::e2e
