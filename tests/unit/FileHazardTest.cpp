#include "tests/unit/HazardFixture.h"

#include <utility>
#include "platform/ForwardingFileSystem.h"

namespace ambrio {
namespace {

class FileHazard : public HazardTest {};

constexpr FileSeconds kHour = 3600;

TEST_F(FileHazard, AFileVanishesGrowsOrIsLockedWhenItsTurnHasCome) {
    for (const wchar_t* name : {L"1", L"2", L"3", L"4"}) {
        File(std::wstring(L"C:\\Data\\") + name, "old text");
    }
    // The files are listed before the first of them is copied.
    Bench.Files.BeforeRename = [this, done = false]() mutable {
        if (!std::exchange(done, true)) {
            File(L"C:\\Data\\2", "old text and more");
            Bench.Files.Node(L"C:\\Data\\3").Locked = true;
        }
    };
    Run();
    EXPECT_EQ(Content(L"C:\\Copies\\1"), "old text");
    EXPECT_EQ(Content(L"C:\\Copies\\2"), "old text and more");
    EXPECT_EQ(Content(L"C:\\Copies\\3"), "none");
    EXPECT_EQ(Content(L"C:\\Copies\\4"), "old text");
    EXPECT_EQ(Bench.State.CopyErrors, 1);
    EXPECT_FALSE(Bench.Signals.Interrupted);
}

TEST_F(FileHazard, TheDestinationFileIsReadOnlyHiddenOrOfTheSystem) {
    const std::vector<std::pair<std::wstring, FileAttributes>> copies = {
        {L"read-only", kAttributeReadOnly},
        {L"hidden", kAttributeHidden},
        {L"system", kAttributeSystem},
        {L"all", kAttributeReadOnly | kAttributeHidden | kAttributeSystem}};
    for (const auto& [name, attributes] : copies) {
        File(L"C:\\Data\\" + name, "new");
        Bench.Files.WriteFile(L"C:\\Copies\\" + name, "old", attributes, 13'300'000'000);
    }
    Run();
    EXPECT_EQ(Content(L"C:\\Copies\\read-only") + Content(L"C:\\Copies\\all"), "oldold");
    EXPECT_EQ(Content(L"C:\\Copies\\hidden") + Content(L"C:\\Copies\\system"), "newnew");
    EXPECT_EQ(Bench.State.CopyErrors, 2);
    Bench.Set(L"S", kOverwriteReadOnlyKey, kYes);
    Run();
    EXPECT_EQ(Content(L"C:\\Copies\\read-only") + Content(L"C:\\Copies\\all"), "newnew");
    ExpectNothingMoreToCopy();
}

class DateTest : public FileHazard, public testing::WithParamInterface<FileSeconds> {};

TEST_P(DateTest, IsCopiedOnceAndAgainWhenItIsASecondNewer) {
    File(L"C:\\Data\\a", "first", GetParam());
    Run();
    EXPECT_EQ(Content(L"C:\\Copies\\a"), "first");
    EXPECT_EQ(Bench.Files.Node(L"C:\\Copies\\a").DateLastModified, GetParam());
    ExpectNothingMoreToCopy();
    File(L"C:\\Data\\a", "second", GetParam() + 1);
    Run();
    EXPECT_EQ(Content(L"C:\\Copies\\a"), "second");
}

INSTANTIATE_TEST_SUITE_P(SecondsSince1601, DateTest,
                         testing::Values(0, 1,
                                         11'960'006'400,    // 1980-01-01
                                         13'400'000'000,    // 2025
                                         17'600'000'000,    // 2158
                                         922'337'203'684),  // the last that a file can have
                         testing::PrintToStringParamName());

// Clocks show 02:30 twice when summer ends; a file of the second time is an hour newer.
TEST_F(FileHazard, AnHourIsRepeatedWhenDaylightSavingEnds) {
    constexpr FileSeconds kFirst = 13'405'912'200;
    File(L"C:\\Data\\a", "of the second hour", kFirst + kHour);
    File(L"C:\\Copies\\a", "of the first hour", kFirst);
    File(L"C:\\Data\\b", "of the first hour", kFirst);
    File(L"C:\\Copies\\b", "of the second hour", kFirst + kHour);
    Run();
    EXPECT_EQ(Content(L"C:\\Copies\\a"), "of the second hour");
    EXPECT_EQ(Content(L"C:\\Copies\\b"), "of the second hour");
    EXPECT_EQ(Bench.State.FilesCopied, 1);
}

// A destination that keeps even seconds only.
class EvenSeconds : public ForwardingFileSystem {
  public:
    EvenSeconds(MemoryFileSystem& files, FileSeconds step)
        : ForwardingFileSystem(files), files_(files), step_(step) {}

    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override {
        ForwardingFileSystem::CopyFile(source, destination, overwrite, yield);
        FileSeconds& time = files_.Node(destination).DateLastModified;
        time += time % 2 * step_;
    }

  private:
    MemoryFileSystem& files_;
    FileSeconds step_;
};

TEST_F(FileHazard, TheDestinationKeepsEvenSecondsAndRoundsUp) {
    File(L"C:\\Data\\odd", "x", 13'400'000'001);
    File(L"C:\\Data\\even", "x", 13'400'000'000);
    EvenSeconds files(Bench.Files, 1);  // as the system does it
    for (const int copied : {2, 0, 0}) {
        Run(files);
        EXPECT_EQ(Bench.State.FilesCopied, copied);
    }
}

// Wanted: times are compared without tolerance, so a copy whose time was rounded down is made anew
// in each run rather than ever being missed.
TEST_F(FileHazard, TheDestinationKeepsEvenSecondsAndRoundsDown) {
    File(L"C:\\Data\\odd", "x", 13'400'000'001);
    File(L"C:\\Data\\even", "x", 13'400'000'000);
    EvenSeconds files(Bench.Files, -1);
    for (const int copied : {2, 1, 1}) {
        Run(files);
        EXPECT_EQ(Bench.State.FilesCopied, copied);
        EXPECT_FALSE(Bench.State.HasFailures());
    }
}

}  // namespace
}  // namespace ambrio
