// A disk that is full, in the middle of a copy and in the middle of the log. It is a real disk of a
// few megabytes, which the environment variable AMBRIO_SMALL_DISK names (without a separator at the
// end, with nothing of worth on it).

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "tests/e2e/support/Environment.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

constexpr std::size_t kPage = 4096;  // what a small file takes at least
constexpr std::size_t kLarge = 600 * kPage;

std::wstring SmallDisk() {
    return TextFromEnvironment(L"AMBRIO_SMALL_DISK");
}

std::uint64_t FreeBytes() {
    ULARGE_INTEGER bytes{};
    if (GetDiskFreeSpaceExW(SmallDisk().c_str(), &bytes, nullptr, nullptr) == 0) {
        ThrowWin32Error("asking for the free space of the small disk");
    }
    return bytes.QuadPart;
}

class DiskFullTest : public SaverTest {
  protected:
    void SetUp() override {
        if (SmallDisk().empty()) {
            GTEST_SKIP() << "no small disk is to be had: name one in AMBRIO_SMALL_DISK";
        }
        MakeFolders(Copies);
        Settings.WriteSets({{L"Documents", Source.Root(), Copies}});
    }
    ~DiskFullTest() override {
        if (!SmallDisk().empty()) {
            RemoveTree(Copies);
            MakeRoom();
        }
    }

    // Leaves so many bytes of the disk.
    void FillUpTo(std::uint64_t left) const {
        const std::uint64_t free = FreeBytes();
        ASSERT_GT(free, left);
        WriteFileBytes(Filler, std::string(static_cast<std::size_t>(free - left), 'f'));
        ASSERT_LE(FreeBytes(), left);
    }
    void MakeRoom() const { DeleteFileW(Filler.c_str()); }

    [[nodiscard]] Lines DiskFullEntry(const std::wstring& name) const {
        return {L"Error 61 - Disk full while copying ", L"      <" + Source.PathOf(name) + L">",
                L"   to <" + Copies + L"\\" + name + L">"};
    }
    // Runs until the end and looks for these entries and this sentence in the log.
    void ExpectRun(const std::vector<Lines>& entries, const std::wstring& sentence) {
        RunToTheEnd();
        if (entries.empty()) {
            EndByKey();
        } else {
            EndByKeyAndBox();
        }
        const Lines block = LatestBlock();
        for (const Lines& entry : entries) {
            EXPECT_NE(std::search(block.begin(), block.end(), entry.begin(), entry.end()),
                      block.end())
                << testing::PrintToString(entry) << " not in " << testing::PrintToString(block);
        }
        ASSERT_GE(block.size(), 3U);
        EXPECT_EQ(block[block.size() - 3], sentence);
        EXPECT_TRUE(block[block.size() - 2].starts_with(entries.empty() ? L"Ambrio completed "
                                                                        : L"Ambrio ended "));
    }

    const std::wstring Copies = SmallDisk() + L"\\copies";
    const std::wstring Filler = SmallDisk() + L"\\filler";
};

TEST_F(DiskFullTest, ACopyThatDoesNotFitLeavesTheOldOneAndTheOthersAreMade) {
    Source.AddFile(L"a.txt", "small")
        .AddFile(L"large.bin", std::string(kLarge, 'L'))
        .AddFile(L"z.txt", "small too");
    TestTree copies(Copies);
    copies.AddFile(L"large.bin", "the old one", 7200);
    FillUpTo(kLarge / 2);
    ExpectRun({DiskFullEntry(L"large.bin")},
              L"Of 3 files checked, 2 were copied and 1 failed to copy; 0 copies were removed.");
    EXPECT_EQ(ReadFileBytes(Copies + L"\\large.bin"), "the old one");
    EXPECT_EQ(ReadFileBytes(Copies + L"\\a.txt") + ReadFileBytes(Copies + L"\\z.txt"),
              "smallsmall too");
    EXPECT_EQ(ReadTree(Copies).size(), 3U) << "something else was left there";

    MakeRoom();
    ExpectRun({}, L"Of 3 files checked, 1 were copied; 0 copies were removed.");
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Copies)));
}

TEST_F(DiskFullTest, WithoutAFreeByteEachCopyIsReportedAndNothingIsLeft) {
    Source.AddFile(L"1.txt", "one").AddFile(L"Sub\\2.txt", "two");
    FillUpTo(0);
    ExpectRun({DiskFullEntry(L"1.txt"), DiskFullEntry(L"Sub\\2.txt")},
              L"Of 2 files checked, 0 were copied and 2 failed to copy; 0 copies were removed.");
    EXPECT_EQ(ReadTree(Copies).size(), 1U) << "more than the subfolder was left there";
    MakeRoom();
    ExpectRun({}, L"Of 2 files checked, 2 were copied; 0 copies were removed.");
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Copies)));
}

// The program and with it the log are on the disk; the copies are elsewhere.
class LogDiskFullTest : public DiskFullTest {
  protected:
    // Two Sets, and a log of the same day that has room for so many bytes.
    void SetUp() override {
        DiskFullTest::SetUp();
        if (IsSkipped()) {
            return;
        }
        program_.emplace(L"Ambrio.scr", SmallDisk());
        Source.AddFile(L"1.txt", "one").AddFile(L"Sub\\2.txt", "two");
        Settings.WriteSets({{L"Documents", Source.Root(), Destination()},
                            {L"More", Source.Root(), SecondDestination}});
        Settings.Write(L"General", L"LastRun", PresentTime());
    }
    void WriteLog(std::size_t left) {
        Old = std::string(kPage - left, '-');
        WriteFileBytes(program_->LogFile(), Old);
        FillUpTo(0);
    }
    // The run must end by itself, in order, and say why.
    void ExpectBoxAndEnd() {
        Start(L"/S", *program_);
        const MessageBoxProbe box = WaitForBox();
        EXPECT_EQ(WithoutReturns(box.Text()),
                  L"Error 61 - Disk full while writing \n      <" + program_->LogFile() + L">");
        EXPECT_EQ(box.Icon(), BoxIcon::CriticalStop);
        EXPECT_TRUE(box.Press());
        EXPECT_TRUE(Ends());
        EXPECT_FALSE(FolderExists(SecondDestination));
        MakeRoom();
    }
    [[nodiscard]] std::string LogBytes() const { return ReadFileBytes(program_->LogFile()); }

    const std::wstring SecondDestination = Destination() + L" of more";
    std::string Old;

  private:
    std::optional<ProgramFolder> program_;
};

TEST_F(LogDiskFullTest, InTheMiddleOfTheLogTheCopiesMadeSoFarAreWhole) {
    WriteLog(120);  // the header and the start of the first Set, not its end
    ExpectBoxAndEnd();
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
    EXPECT_TRUE(LogBytes().starts_with(Old));
    EXPECT_NE(LogBytes().find("'Documents' start\r\n"), std::string::npos);
}

TEST_F(LogDiskFullTest, BeforeTheFirstLineOfTheLogNothingIsCopied) {
    WriteLog(0);
    ExpectBoxAndEnd();
    EXPECT_FALSE(FolderExists(Destination()));
    EXPECT_EQ(LogBytes(), Old);
}

}  // namespace
}  // namespace ambrio::e2e
