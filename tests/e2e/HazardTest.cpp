// What can happen to files on a user's disks while the real program copies them, and the places
// and dates that they can have.

#include <gtest/gtest.h>

#include <algorithm>
#include <system_error>
#include <thread>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/NameOf.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

constexpr std::uint64_t kTicksPerSecond = 10'000'000;

class HazardTest : public SaverTest {
  protected:
    // Runs to the end and gives the line of the log that counts.
    std::wstring CountsOfARun() {
        RunToTheEnd();
        EndByKey();
        const Lines block = LatestBlock();
        return block.size() < 4 ? std::wstring() : block[block.size() - 3];
    }
    static std::wstring Counts(int checked, int copied) {
        return L"Of " + std::to_wstring(checked) + L" files checked, " + std::to_wstring(copied) +
               L" were copied; 0 copies were removed.";
    }
};

// Bytes of which no stretch of a file repeats another at its place.
std::string Pattern(std::size_t size) {
    std::string bytes(size, '\0');
    std::uint32_t value = 1;
    for (char& byte : bytes) {
        value = value * 1664525U + 1013904223U;
        byte = static_cast<char>(value >> 24U);
    }
    return bytes;
}

// Appends to a file on a thread of its own, a little at a time, until it is told to stop or has
// nothing more.
class Writer {
  public:
    Writer(const std::wstring& path, const std::string& bytes, std::size_t alreadyThere)
        : file_(OpenFile(path, GENERIC_WRITE,
                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING)),
          stop_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
          thread_([this, &bytes, alreadyThere] { Append(bytes, alreadyThere); }) {}
    ~Writer() {
        SetEvent(stop_.get());
        thread_.join();
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

  private:
    void Append(const std::string& bytes, std::size_t from) {
        constexpr std::size_t kStep = 4096;
        SetFilePointer(file_.get(), 0, nullptr, FILE_END);
        while (from < bytes.size() && WaitForSingleObject(stop_.get(), 1) == WAIT_TIMEOUT) {
            const std::size_t count = std::min(kStep, bytes.size() - from);
            DWORD written = 0;
            WriteFile(file_.get(), &bytes[from], static_cast<DWORD>(count), &written, nullptr);
            from += count;
        }
    }

    UniqueHandle file_;
    UniqueHandle stop_;
    std::thread thread_;
};

TEST_F(HazardTest, AFileThatGrowsWhileItIsCopiedIsCopiedAsItWasAtSomeMomentAndThenAnew) {
    constexpr std::size_t kBefore = std::size_t{24} << 20U;
    const std::string bytes = Pattern(kBefore + (std::size_t{8} << 20U));
    Source.AddFile(L"a.txt", "a")
        .AddFile(L"grows.log", {bytes.data(), kBefore})
        .AddFile(L"z.txt", "z");
    WriteOneSet();
    const std::wstring copy = Destination() + L"\\grows.log";
    {
        const Writer writer(Source.PathOf(L"grows.log"), bytes, kBefore);
        EXPECT_EQ(CountsOfARun(), Counts(3, 3));
    }
    const std::string first = ReadFileBytes(copy);
    EXPECT_GE(first.size(), kBefore);
    EXPECT_TRUE(bytes.starts_with(first)) << "the copy is no beginning of the file";
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\z.txt"), "z");

    SetModificationTime(Source.PathOf(L"grows.log"), Now() + 2 * kTicksPerSecond);
    EXPECT_EQ(CountsOfARun(), Counts(3, 1));
    EXPECT_GT(ReadFileBytes(copy).size(), kBefore);
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
}

// Little is listed ahead, so what goes long before its turn is never missed.
TEST_F(HazardTest, AFileThatVanishesLongBeforeItsTurnStopsNothing) {
    Source.AddManyFiles(L"many", 1200);
    WriteOneSet();
    Start(L"/S");
    // The first copy tells that the listing has begun. It is the file that is looked for: the panel
    // would answer too late on a busy machine.
    ASSERT_TRUE(WaitUntil([this] { return FileExists(Destination() + L"\\many\\0001.txt"); }));
    ASSERT_NE(DeleteFileW(ExtendedPath(Source.PathOf(L"many\\1100.txt")).c_str()), 0);
    WaitForTheEndOfTheRun();
    EndByKey();
    EXPECT_EQ(LatestBlock(), Block({L"'Documents' start", L"'Documents' complete",
                                    L"Of 1199 files checked, 1199 were copied; 0 copies were "
                                    L"removed."},
                                   L" completed "));
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
}

struct NestedCase {
    const char* Name;
    const wchar_t* Source;       // below the folder "Data"
    const wchar_t* Destination;  // the same
    int Copied;
};

class NestedTest : public HazardTest, public testing::WithParamInterface<NestedCase> {};

TEST_P(NestedTest, LosesNoByteOfTheSourceAndHasNothingToDoTheNextTime) {
    const std::wstring data = Folder.Below(L"Data");
    const std::wstring source = data + GetParam().Source;
    const std::wstring destination = data + GetParam().Destination;
    TestTree tree(source);
    tree.AddFile(L"a.txt", "1").AddFile(L"Sub\\Deep\\b.txt", "22").AddFile(L"Sub\\c.txt", "3");
    const TreeFacts before = ReadTree(source);
    Settings.WriteSets({{L"Documents", source, destination}});
    for (const int copied : {GetParam().Copied, 0}) {
        EXPECT_EQ(CountsOfARun(), Counts(3, copied));
        const TreeFacts after = ReadTree(source);
        for (const auto& [path, facts] : before) {
            const auto found = after.find(path);
            ASSERT_NE(found, after.end());
            EXPECT_EQ(found->second.ContentHash, facts.ContentHash);
            EXPECT_EQ(found->second.ModificationTime * !facts.IsFolder,
                      facts.ModificationTime * !facts.IsFolder);
        }
        if (GetParam().Copied > 0) {
            EXPECT_EQ(ReadFileBytes(destination + L"\\Sub\\Deep\\b.txt"), "22");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Folders, NestedTest,
    testing::Values(NestedCase{"TheSame", L"\\Own", L"\\Own", 0},
                    NestedCase{"TheSameInAnotherSpelling", L"\\Own", L"\\.\\OWN\\", 0},
                    NestedCase{"TheDestinationInTheSource", L"", L"\\Sub\\Backup", 3},
                    NestedCase{"TheSourceInTheDestination", L"\\Mine\\Own", L"", 3}),
    NameOf());

struct DateCase {
    const char* Name;
    std::uint64_t Seconds;  // since 1601
};
constexpr std::uint64_t kDay = 86'400;
constexpr std::uint64_t kHour = 3'600;
// Clocks of Central Europe, and of the eastern states of America, show the hour that begins here
// twice.
constexpr std::uint64_t kEuropesLastSummerHour = 13'437'360'000;   // 2026-10-25 00:00 UTC
constexpr std::uint64_t kAmericasLastSummerHour = 13'437'982'800;  // 2026-11-01 05:00 UTC

class DateTest : public HazardTest, public testing::WithParamInterface<DateCase> {
  protected:
    // False when the file system cannot keep such a time.
    bool AddFileOf(std::uint64_t seconds) {
        Source.AddFile(L"file", "f");
        SetModificationTime(Source.PathOf(L"file"), seconds * kTicksPerSecond);
        return ReadTree(Source.Root())[L"file"].ModificationTime == seconds * kTicksPerSecond;
    }
};

TEST_P(DateTest, IsCopiedOnceAndAnewWhenItIsAnHourNewer) {
    WriteOneSet();
    for (const std::uint64_t seconds : {GetParam().Seconds, GetParam().Seconds + kHour}) {
        if (!AddFileOf(seconds)) {
            GTEST_SKIP() << "the file system keeps no time of the year 1601";
        }
        EXPECT_EQ(CountsOfARun(), Counts(1, 1));
        EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
        EXPECT_EQ(CountsOfARun(), Counts(1, 0));
    }
    // The copy of the later hour stays although the file is older now.
    ASSERT_TRUE(AddFileOf(GetParam().Seconds));
    EXPECT_EQ(CountsOfARun(), Counts(1, 0));
}

INSTANTIATE_TEST_SUITE_P(
    Files, DateTest,
    testing::Values(DateCase{"Of1601", kDay}, DateCase{"Of1980", 11'960'006'400},
                    DateCase{"OfTheFuture", 17'600'000'000},
                    DateCase{"OfTheRepeatedHourInEurope", kEuropesLastSummerHour + kHour / 2},
                    DateCase{"OfTheRepeatedHourInAmerica", kAmericasLastSummerHour + kHour / 2}),
    NameOf());

class PathLengthTest : public HazardTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(PathLengthTest, IsCopied) {
    // The destination's folder has a longer name than the source's; both lie below the limit of
    // the file, so the copy's path is the one of that length.
    constexpr std::size_t kName = 100;
    std::wstring relative;
    while (Destination().size() + relative.size() + 2 + kName < GetParam()) {
        relative += std::wstring(kName, L'd') + L"\\";
    }
    relative += std::wstring(GetParam() - Destination().size() - 1 - relative.size(), L'f');
    ASSERT_EQ((Destination() + L"\\" + relative).size(), GetParam());
    try {
        Source.AddFile(relative, "deep");
    } catch (const std::system_error& error) {
        constexpr std::size_t kEverySystemCan = 1000;
        ASSERT_GT(GetParam(), kEverySystemCan) << error.what();
        GTEST_SKIP() << "the system below keeps no path of this length";
    }
    WriteOneSet();
    EXPECT_EQ(CountsOfARun(), Counts(1, 1));
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\" + relative), "deep");
    EXPECT_EQ(CountsOfARun(), Counts(1, 0));
}

INSTANTIATE_TEST_SUITE_P(Lengths, PathLengthTest, testing::Values(259, 260, 261, 1'000, 30'000),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace ambrio::e2e
