// Long runs and many runs: neither takes more and more of the machine, neither leaves anything.

#include <gtest/gtest.h>

#include <iostream>
#include <set>

#include "tests/e2e/support/Environment.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/Holdings.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

constexpr int kFilesInAFolder = 10;
constexpr int kFoldersInAFolder = 20;
constexpr int kFilesBeforeMeasuring = 1000;
constexpr int kFilesInTheTests = 20'000;
// Spent only when a run does not end.
constexpr Milliseconds kLongRun = std::chrono::hours(2);

int SizeFromEnvironment(const wchar_t* name, unsigned otherwise) {
    return static_cast<int>(NumberFromEnvironment(name, otherwise));
}

// The folders of the tree by their number, each with twenty subfolders while the numbers last, so
// that no folder is large and the tree is deep. With a separator at the end; the root is empty.
std::wstring FolderByNumber(int number) {
    if (number == 0) {
        return L"";
    }
    const int parent = (number - 1) / kFoldersInAFolder;
    return FolderByNumber(parent) + std::to_wstring(number) + L"\\";
}

void MakeSmallFile(const std::wstring& path, int size) {
    const UniqueHandle file = OpenFile(path, GENERIC_WRITE, 0, CREATE_NEW);
    DWORD written = 0;
    if (WriteFile(file.get(), "x", static_cast<DWORD>(size), &written, nullptr) == 0) {
        ThrowWin32Error("writing a file");
    }
}

void MakeTree(const std::wstring& root, int folders) {
    for (int number = 0; number < folders; ++number) {
        const std::wstring folder = root + L"\\" + FolderByNumber(number);
        if (number != 0 && CreateDirectoryW(ExtendedPath(folder).c_str(), nullptr) == 0) {
            ThrowWin32Error("making a folder");
        }
        for (int i = 0; i < kFilesInAFolder; ++i) {
            MakeSmallFile(folder + L"f" + std::to_wstring(i), i % 2);
        }
    }
}

// What a listing says of a folder's entries: the name, and the size of what is a file.
std::set<std::pair<std::wstring, std::uint64_t>> EntriesOf(const std::wstring& folder) {
    std::set<std::pair<std::wstring, std::uint64_t>> entries;
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW(ExtendedPath(folder + L"*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) {
        return entries;
    }
    do {
        const bool folderEntry = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        const std::uint64_t size = (std::uint64_t{entry.nFileSizeHigh} << 32U) | entry.nFileSizeLow;
        entries.emplace(entry.cFileName, folderEntry ? 0 : size);
    } while (FindNextFileW(search, &entry) != 0);
    FindClose(search);
    return entries;
}

// How many folders of the copy do not hold what their source holds.
int FoldersThatDiffer(const std::wstring& source, const std::wstring& copy, int folders) {
    int different = 0;
    for (int number = 0; number < folders; ++number) {
        const std::wstring folder = L"\\" + FolderByNumber(number);
        if (EntriesOf(source + folder) != EntriesOf(copy + folder)) {
            ++different;
        }
    }
    return different;
}

class EnduranceTest : public SaverTest {
  protected:
    // A block that tells of a run without failures; its times may be further in the past than
    // those of a short test.
    void ExpectLatestBlock(const std::wstring& counts) const {
        const Lines block = LatestBlock();
        ASSERT_EQ(block.size(), 7U);
        EXPECT_EQ(Lines(block.begin() + 2, block.begin() + 5),
                  (Lines{L"'Documents' start", L"'Documents' complete", counts}));
        EXPECT_TRUE(block[5].starts_with(L"Ambrio completed "));
    }

    // What the program holds once that many files are dealt with.
    Holdings HoldingsAfter(PanelControl counter, int files) {
        const PanelProbe panel = Panel();
        EXPECT_TRUE(
            WaitUntil([&] { return panel.Number(counter) >= files; }, kLongRun, kBetweenRareLooks));
        return HoldingsOf(Program().ProcessId());
    }

    // Runs over all files and compares what is held after the first thousand and after the last.
    void RunAndMeasure(PanelControl counter, int files) {
        const ULONGLONG started = GetTickCount64();
        Start(L"/S");
        const Holdings early = HoldingsAfter(counter, kFilesBeforeMeasuring);
        const Holdings late = HoldingsAfter(counter, files);
        WaitForTheEndOfTheRun(kLongRun);
        const ULONGLONG seconds = (GetTickCount64() - started) / 1000;
        constexpr SIZE_T kGrowth = SIZE_T{8} << 20U;
        constexpr DWORD kHandles = 8;
        EXPECT_GT(early.PrivateBytes, 0U) << "nothing was measured";
        EXPECT_LT(late.WorkingSet, early.WorkingSet + kGrowth);
        EXPECT_LT(late.PrivateBytes, early.PrivateBytes + kGrowth);
        EXPECT_GT(early.Handles, 0U) << "nothing was measured";
        EXPECT_LE(late.Handles, early.Handles + kHandles);
        std::cout << "| run over " << files << " files, " << seconds << " s | after "
                  << kFilesBeforeMeasuring << " | after the last |\n"
                  << "| working set, KiB | " << early.WorkingSet / 1024 << " | "
                  << late.WorkingSet / 1024 << " |\n"
                  << "| memory of its own, KiB | " << early.PrivateBytes / 1024 << " | "
                  << late.PrivateBytes / 1024 << " |\n"
                  << "| handles | " << early.Handles << " | " << late.Handles << " |" << std::endl;
    }
};

TEST_F(EnduranceTest, TakesNoMoreMemoryAndHandlesHoweverManyFilesThereAre) {
    const int folders =
        SizeFromEnvironment(L"AMBRIO_SOAK_FILES", kFilesInTheTests) / kFilesInAFolder;
    const int files = folders * kFilesInAFolder;
    MakeTree(Source.Root(), folders);
    WriteOneSet();
    const std::wstring checked = L"Of " + std::to_wstring(files) + L" files checked, ";

    RunAndMeasure(PanelControl::lblcopied, files);
    EndByKey();
    ExpectLatestBlock(checked + std::to_wstring(files) + L" were copied; 0 copies were removed.");
    EXPECT_EQ(FoldersThatDiffer(Source.Root(), Destination(), folders), 0);

    if (files == kFilesInTheTests) {
        return;  // what follows is for who has the time
    }
    RunAndMeasure(PanelControl::lblChecked, files);
    EndByKey();
    ExpectLatestBlock(checked + L"0 were copied; 0 copies were removed.");
}

// All that lies below a folder, by name.
std::set<std::wstring> NamesBelow(const std::wstring& root) {
    std::set<std::wstring> names;
    for (const auto& [path, facts] : ReadTree(root)) {
        names.insert(path);
    }
    return names;
}

TEST_F(EnduranceTest, StartedAndEndedManyTimesItLeavesNothingBehind) {
    const int cycles = SizeFromEnvironment(L"AMBRIO_SOAK_CYCLES", 20);
    constexpr int kAge = 100'000;  // in s
    Source.AddFile(L"one.txt", "0", kAge).AddFile(L"sub\\two.txt", "22", kAge);
    WriteOneSet();
    std::set<std::wstring> names;
    for (int cycle = 1; cycle <= cycles; ++cycle) {
        Source.AddFile(L"one.txt", std::to_string(cycle), static_cast<unsigned>(kAge - 10 * cycle));
        RunToTheEnd();
        EndByKey();
        EXPECT_EQ(Program().ExitCode(), 0U);
        ExpectLatestBlock(cycle == 1
                              ? L"Of 2 files checked, 2 were copied; 0 copies were removed."
                              : L"Of 2 files checked, 1 were copied; 0 copies were removed.");
        if (cycle == 1) {
            names = NamesBelow(Folder.Path());
        }
        ASSERT_FALSE(HasFailure()) << "in cycle " << cycle;
    }
    EXPECT_EQ(NamesBelow(Folder.Path()), names);
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
    EXPECT_EQ(Log().Blocks().size(), static_cast<std::size_t>(cycles));
}

}  // namespace
}  // namespace ambrio::e2e
