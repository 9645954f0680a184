// The program is killed at random moments of a storm of copies, as by a crash or a user's
// impatience. Whatever the moment, each copy is whole, and the next run completes the work.

#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <random>
#include <set>

#include "tests/e2e/support/Environment.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

constexpr unsigned kSmallFiles = 150;
constexpr unsigned kLargeFiles = 4;
constexpr std::size_t kLargeSize = 3U << 20U;
constexpr unsigned kKillsInTheTests = 20;
constexpr unsigned kKillsBetweenWholeRuns = 5;
// A file of a later version is so much newer.
constexpr unsigned kSecondsPerVersion = 10;
constexpr unsigned kAgeOfTheFirst = 1'000'000;

struct StormFile {
    std::wstring Path;     // below the source
    unsigned Version = 0;  // that the source has
    unsigned Copy = 0;     // that the destination has; meaningless without a copy
    bool HasCopy = false;
};

// Each version of each file has a content of its own.
std::string ContentOf(const StormFile& file, unsigned version) {
    const std::string mark = Utf8(file.Path) + " version " + std::to_string(version) + "\n";
    std::string content = mark;
    if (file.Path.starts_with(L"large")) {
        while (content.size() < kLargeSize) {
            content += content;
        }
    }
    return content + mark;
}

class KillTest : public SaverTest {
  protected:
    KillTest() {
        WriteOneSet();
        for (unsigned i = 0; i < kSmallFiles; ++i) {
            const std::wstring folder = L"folder" + std::to_wstring(i % 7) + L"\\";
            Storm.push_back({(i % 3 == 0 ? L"" : folder) + std::to_wstring(i) + L".txt"});
        }
        for (unsigned i = 0; i < kLargeFiles; ++i) {
            Storm.push_back({L"large" + std::to_wstring(i) + L".bin"});
        }
        for (StormFile& file : Storm) {
            Write(file);
        }
    }

    void Write(const StormFile& file) {
        Source.AddFile(file.Path, ContentOf(file, file.Version),
                       kAgeOfTheFirst - file.Version * kSecondsPerVersion);
    }
    // A new version of about every second file, and a few files that have no copy yet.
    void ChangeSources() {
        for (int i = 0; i < 3; ++i) {
            Storm.push_back({L"new\\" + std::to_wstring(Storm.size()) + L".txt"});
            Write(Storm.back());
        }
        for (StormFile& file : Storm) {
            if (Random() % 2 == 0) {
                ++file.Version;
                Write(file);
            }
        }
    }
    void KillAtARandomMoment() {
        Start(L"/S");
        if (Random() % 2 == 0) {
            const auto most = static_cast<int>(Random() % Storm.size() / 2);
            const PanelProbe panel = Panel();
            EXPECT_TRUE(WaitUntil([&] {
                return panel.Number(PanelControl::lblcopied) >= most || panel.ShowsTheEndOfTheRun();
            }));
        } else {
            const auto limit = static_cast<unsigned>(LengthOfARun.count());
            EXPECT_FALSE(Program().WaitForEnd(Milliseconds(Random() % limit)));
        }
        Program().Kill();
    }
    // Each copy is what it was or what it was to become; what it is now is kept for the next time.
    // Nothing else is there but temporaries.
    void ExpectWholeCopies() {
        std::set<std::wstring> known;
        for (StormFile& file : Storm) {
            known.insert(file.Path);
            const std::wstring path = Destination() + L"\\" + file.Path;
            if (!FileExists(path)) {
                EXPECT_FALSE(file.HasCopy) << Utf8(path) << " is gone";
                continue;
            }
            const std::string content = ReadFileBytes(path);
            if (content == ContentOf(file, file.Version)) {
                file.Copy = file.Version;
            } else {
                EXPECT_TRUE(file.HasCopy && content == ContentOf(file, file.Copy))
                    << Utf8(path) << " holds neither the old nor the new version";
            }
            file.HasCopy = true;
        }
        for (const auto& [path, entry] : ReadTree(Destination())) {
            EXPECT_TRUE(entry.IsFolder || known.contains(path) ||
                        path.find(L"~ambrio-") != std::wstring::npos)
                << Utf8(path) << " is nobody's copy";
        }
    }
    void RunToCompletion() {
        const auto start = std::chrono::steady_clock::now();
        Start(L"/S");
        WaitForTheEndOfTheRun(kWholeRun);
        LengthOfARun =
            std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now() - start);
        EndByKey();
        EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
        ExpectWholeCopies();
        ExpectWholeLog();
    }
    // A killed run lacks the end of its block; no line is torn, and the last block is whole.
    void ExpectWholeLog() const {
        const LogText log = Log();
        const Lines& lines = log.AllLines();
        for (const std::wstring& line : lines) {
            EXPECT_TRUE(line == kSeparator || line == L"'Documents' start" ||
                        line == L"'Documents' complete" || line.starts_with(L"Ambrio start ") ||
                        line.starts_with(L"Ambrio completed ") || line.ends_with(L" removed."))
                << Utf8(line);
        }
        ASSERT_GE(lines.size(), 7U);
        const auto fromEnd = [&](std::size_t n) { return lines[lines.size() - n]; };
        EXPECT_EQ(fromEnd(7), kSeparator);
        EXPECT_TRUE(fromEnd(6).starts_with(L"Ambrio start "));
        EXPECT_EQ(fromEnd(5), L"'Documents' start");
        EXPECT_EQ(fromEnd(4), L"'Documents' complete");
        EXPECT_TRUE(fromEnd(3).starts_with(L"Of " + std::to_wstring(Storm.size()) + L" files"));
        EXPECT_TRUE(fromEnd(2).starts_with(L"Ambrio completed "));
        EXPECT_EQ(fromEnd(1), kSeparator);
    }

    std::vector<StormFile> Storm;
    std::mt19937 Random;
    Milliseconds LengthOfARun{0};
};

TEST_F(KillTest, WhateverTheMomentEachCopyIsWholeAndTheNextRunCompletes) {
    const unsigned seed = NumberFromEnvironment(L"AMBRIO_SEED", std::random_device()());
    const unsigned kills = NumberFromEnvironment(L"AMBRIO_KILLS", kKillsInTheTests);
    std::cout << kills << " kills, AMBRIO_SEED=" << seed << std::endl;
    Random.seed(seed);
    RunToCompletion();
    int stopped = 0;
    for (unsigned kill = 1; kill <= kills; ++kill) {
        ChangeSources();
        KillAtARandomMoment();
        ExpectWholeCopies();
        for (const StormFile& file : Storm) {
            if (file.Copy != file.Version) {
                ++stopped;
                break;
            }
        }
        if (kill % kKillsBetweenWholeRuns == 0 || kill == kills) {
            RunToCompletion();
        }
        ASSERT_FALSE(HasFailure()) << "at kill " << kill;
    }
    // A kill after the end of the run would show nothing.
    EXPECT_GT(stopped, static_cast<int>(kills / 3));
}

}  // namespace
}  // namespace ambrio::e2e
