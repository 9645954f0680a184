// Copies made ahead by threads, in whole runs. A build under a sanitizer for threads watches them.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <latch>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/CopyAhead.h"
#include "tests/support/EngineBench.h"
#include "tests/support/LockedFileSystem.h"
#include "tests/support/ThreadPool.h"

namespace ambrio {
namespace {

constexpr FileSeconds kTime = 13'100'000'000;
constexpr int kFolders = 6;
constexpr int kFilesOfAFolder = 40;

class CopyAheadThreadsTest : public testing::Test {
  protected:
    static void Arrange(EngineBench& bench) {
        bench.AddSet(L"S", L"C:\\From", L"C:\\To");
        for (int folder = 0; folder < kFolders; ++folder) {
            for (int file = 0; file < kFilesOfAFolder; ++file) {
                const std::wstring path =
                    L"\\" + std::to_wstring(folder) + L"\\" + std::to_wstring(file);
                bench.Files.WriteFile(L"C:\\From" + path, "new " + std::to_string(file), 0, kTime);
                if (file % 3 == 0) {
                    bench.Files.WriteFile(L"C:\\To" + path, "old", 0, kTime - file % 2);
                }
            }
            bench.Files.Node(L"C:\\From\\" + std::to_wstring(folder) + L"\\7").Locked = true;
        }
    }
    static bool HasTemporary(EngineBench& bench) {
        const auto lines = bench.Files.Snapshot();
        return std::any_of(lines.begin(), lines.end(), [](const std::wstring& line) {
            return line.find(L"~ambrio-") != std::wstring::npos;
        });
    }
    // One run with the threads, whatever they leave told.
    static void RunAhead(EngineBench& bench) {
        LockedFileSystem locked(bench.Files);
        ThreadPool pool;
        CopyAhead ahead(locked, pool);
        bench.Run(ahead, bench.Settings);
        EXPECT_FALSE(HasTemporary(bench));
    }
};

TEST_F(CopyAheadThreadsTest, ARunComesToTheSameAsWithoutThem) {
    EngineBench alone;
    Arrange(alone);
    alone.Run();
    EngineBench bench;
    Arrange(bench);
    RunAhead(bench);
    EXPECT_EQ(bench.Files.Snapshot(L"C:\\To"), alone.Files.Snapshot(L"C:\\To"));
    EXPECT_EQ(bench.Log(), alone.Log());
    EXPECT_EQ(bench.Panel.Events, alone.Panel.Events);
    EXPECT_EQ(bench.State.CopyErrors, kFolders);
}

TEST_F(CopyAheadThreadsTest, AnInterruptionAtAnyMomentLeavesNothing) {
    for (int event = 1; event < 60; event += 4) {
        EngineBench bench;
        Arrange(bench);
        bench.InterruptAtEvent(event);
        RunAhead(bench);
        EXPECT_TRUE(bench.Signals.Interrupted);
    }
}

TEST_F(CopyAheadThreadsTest, AFileIsWaitedForWhileEventsRun) {
    class Slow : public LockedFileSystem {
      public:
        using LockedFileSystem::LockedFileSystem;
        std::unique_ptr<PreparedCopy> PrepareCopy(const ExpectedCopy& copy,
                                                  const std::function<bool()>& isWanted) override {
            std::unique_lock lock(door_);
            opened_.wait(lock, [this] { return isOpen_; });
            lock.unlock();
            return LockedFileSystem::PrepareCopy(copy, isWanted);
        }
        void Open() {
            const std::lock_guard lock(door_);
            isOpen_ = true;
            opened_.notify_all();
        }

      private:
        std::mutex door_;
        std::condition_variable opened_;
        bool isOpen_ = false;
    };
    EngineBench bench;
    Arrange(bench);
    Slow slow(bench.Files);
    ThreadPool pool;
    CopyAhead ahead(slow, pool);
    std::vector<ExpectedCopy> copies;
    for (const wchar_t* name : {L"1", L"2", L"4"}) {
        copies.push_back(
            {L"C:\\From\\0\\" + std::wstring(name), L"C:\\To\\0\\" + std::wstring(name) + L"x", 5});
    }
    ahead.ExpectCopies(copies);
    // Until a thread has begun with it, it would be copied at once; each turn finds out.
    int yields = 0;
    for (const ExpectedCopy& copy : copies) {
        ahead.CopyFile(copy.Source, copy.Destination, true, [&] {
            ++yields;
            slow.Open();
        });
        EXPECT_EQ(bench.Files.Content(copy.Destination), bench.Files.Content(copy.Source));
    }
    slow.Open();
}

// A disk on which no temporary goes until the test lets it.
class LingeringFiles : public LockedFileSystem {
  public:
    using LockedFileSystem::LockedFileSystem;

    std::unique_ptr<PreparedCopy> PrepareCopy(const ExpectedCopy& copy,
                                              const std::function<bool()>& isWanted) override {
        class Lingering : public PreparedCopy {
          public:
            Lingering(LingeringFiles& files, std::unique_ptr<PreparedCopy> copy)
                : files_(files), copy_(std::move(copy)) {}
            ~Lingering() override {
                files_.mayGo_.wait(false);
                copy_.reset();
                ++files_.Gone;
                files_.allGone_.count_down();
            }
            Lingering(const Lingering&) = delete;
            Lingering& operator=(const Lingering&) = delete;
            [[nodiscard]] bool Finish(bool overwrite) override { return copy_->Finish(overwrite); }

          private:
            LingeringFiles& files_;
            std::unique_ptr<PreparedCopy> copy_;
        };
        auto made =
            std::make_unique<Lingering>(*this, LockedFileSystem::PrepareCopy(copy, isWanted));
        allMade_.count_down();
        return made;
    }
    void WaitUntilAllAreMade() const { allMade_.wait(); }
    void WaitUntilAllAreGone() const { allGone_.wait(); }
    void LetGo() {
        mayGo_ = true;
        mayGo_.notify_all();
    }

    static constexpr int kFiles = 3;
    std::atomic<int> Gone = 0;

  private:
    std::latch allMade_{kFiles};
    std::latch allGone_{kFiles};
    std::atomic<bool> mayGo_ = false;
};

// The end of a run that has made all its copies in vain.
class CopyAheadEndTest : public CopyAheadThreadsTest {
  protected:
    // Tells of the end of the threads, whether anything is waited for before it or not.
    class Pool : public ThreadPool {
      public:
        explicit Pool(LingeringFiles& files) : files_(files) {}
        bool End(std::chrono::milliseconds limit) override {
            GoneAtTheEnd = files_.Gone;
            return !AreThreadsStuck && EndSurely(limit);
        }
        // Before the object goes, as the threads use it.
        bool EndSurely(std::chrono::milliseconds limit = {}) {
            files_.LetGo();
            return ThreadPool::End(limit);
        }
        void WaitForNews(std::chrono::milliseconds limit) override {
            if (AreThreadsStuck) {
                ThreadPool::WaitForNews(limit);
                if (++waits_ == kForEver) {
                    files_.LetGo();
                }
                return;
            }
            files_.LetGo();
            unlock();
            files_.WaitUntilAllAreGone();
            lock();
        }

        bool AreThreadsStuck = false;
        int GoneAtTheEnd = -1;

      private:
        static constexpr int kForEver = 1'000;
        LingeringFiles& files_;
        int waits_ = 0;
    };

    CopyAheadEndTest() { Arrange(Bench); }

    // Has all of them made and not one of them asked for.
    void EndAfterNothingButVainCopies(CopyAhead& ahead) {
        std::vector<ExpectedCopy> copies;
        for (int i = 0; i < LingeringFiles::kFiles; ++i) {
            const std::wstring path = L"\\0\\" + std::to_wstring(i);
            copies.push_back({L"C:\\From" + path, L"C:\\To" + path + L"x", 5});
        }
        ahead.ExpectCopies(copies);
        Files.WaitUntilAllAreMade();
        ahead.EndExpecting();
    }

    EngineBench Bench;
    LingeringFiles Files{Bench.Files};
    Pool Threads{Files};
};

TEST_F(CopyAheadEndTest, WaitsUntilWhatWasMadeInVainIsGone) {
    CopyAhead ahead(Files, Threads);
    EndAfterNothingButVainCopies(ahead);
    EXPECT_EQ(Threads.GoneAtTheEnd, LingeringFiles::kFiles);
    EXPECT_FALSE(HasTemporary(Bench));
}

TEST_F(CopyAheadEndTest, LeavesBehindWhatDoesNotGo) {
    CopyAhead ahead(Files, Threads, CopyAhead::kFew, std::chrono::milliseconds(1));
    Threads.AreThreadsStuck = true;
    EndAfterNothingButVainCopies(ahead);
    EXPECT_EQ(Threads.GoneAtTheEnd, 0);
    EXPECT_TRUE(HasTemporary(Bench));
    Threads.EndSurely();
}

}  // namespace
}  // namespace ambrio
