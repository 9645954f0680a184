#include "platform/AnsweringFileSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "platform/ForwardingFileSystem.h"
#include "tests/support/CountingFileSystem.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

using namespace std::chrono_literals;

// Works at once and counts.
class CountingWorker : public Worker {
  public:
    void Do(const std::function<void()>& work, const Yield& yield) override {
        ++Works;
        if (yield) {
            yield();
        }
        IsAtWork = true;
        try {
            work();
        } catch (...) {
            IsAtWork = false;
            throw;
        }
        IsAtWork = false;
    }

    int Works = 0;
    bool IsAtWork = false;
};

// Q: and R: are slow; a clock that the test sets.
class SlowDrives : public SlowRoots {
  public:
    std::wstring RootOf(const std::wstring& path) override {
        return path.starts_with(L"Q:") || path.starts_with(L"R:") ? path.substr(0, 2) : L"";
    }
    std::optional<ErrorNumber> TroubleWith(const std::wstring& root) override {
        Looks.push_back(root);
        return Trouble;
    }
    std::chrono::milliseconds Now() override { return Time; }

    std::chrono::milliseconds Time = 1h;
    std::optional<ErrorNumber> Trouble;
    std::vector<std::wstring> Looks;
};

// Notes whether the worker was at work in each call, and lets each take its time.
class TakingItsTime : public CountingFileSystem {
  public:
    TakingItsTime(FileSystem& files, CountingWorker& worker, SlowDrives& drives)
        : CountingFileSystem(files), worker_(worker), drives_(drives) {}

    bool Before(const FileCall& call) override {
        Take();
        if (call.Operation == FileOperation::Next && --EntriesUntilFailure == 0) {
            throw RuntimeError(ErrorNumber::DiskNotReady);
        }
        return CountingFileSystem::Before(call);
    }
    bool FindsFoldedNames(const std::wstring& folder) override {
        Take();
        return CountingFileSystem::FindsFoldedNames(folder);
    }

    std::chrono::milliseconds Takes = 0ms;
    int EntriesUntilFailure = 0;  // of a listing; 0: none fails
    int OnWorker = 0;
    int Directly = 0;

  private:
    void Take() {
        drives_.Time += Takes;
        (worker_.IsAtWork ? OnWorker : Directly) += 1;
    }

    CountingWorker& worker_;
    SlowDrives& drives_;
};

class AnsweringFileSystemTest : public testing::Test {
  protected:
    AnsweringFileSystemTest() {
        for (const wchar_t* drive : {L"C:", L"Q:", L"R:"}) {
            disk_.SetVolume(drive, true);
            disk_.MakeFolder(drive + std::wstring(L"\\Data"));
            disk_.WriteFile(drive + std::wstring(L"\\Data\\file.txt"), "text");
        }
        files_.AnswerWith([this] { ++yields_; });
    }

    // Every operation once, each about this drive.
    static std::vector<std::function<void(FileSystem&)>> Operations(const std::wstring& drive) {
        const std::wstring file = drive + L"\\Data\\file.txt";
        const std::wstring folder = drive + L"\\Data";
        return {
            [=](FileSystem& files) { EXPECT_TRUE(files.FileExists(file)); },
            [=](FileSystem& files) { EXPECT_TRUE(files.FolderExists(folder)); },
            [=](FileSystem& files) { EXPECT_EQ(4U, files.GetFile(file).Size); },
            [=](FileSystem& files) { EXPECT_TRUE(files.FindFile(file)); },
            [=](FileSystem& files) { EXPECT_NE(nullptr, files.GetFolder(folder)); },
            [=](FileSystem& files) { EXPECT_TRUE(files.IdentityOf(file)); },
            [=](FileSystem& files) { EXPECT_TRUE(files.FindsFoldedNames(folder)); },
            [=](FileSystem& files) { files.CreateFolder(folder + L"\\new"); },
            [=](FileSystem& files) { files.SetAttributes(file, kAttributeHidden); },
            [=](FileSystem& files) { files.CopyFile(file, file + L"2", false, {}); },
            [=](FileSystem& files) { files.DeleteFile(file + L"2", false); },
            [=](FileSystem& files) { EXPECT_NE(nullptr, files.OpenForAppending(file)); },
            [=](FileSystem& files) { EXPECT_TRUE(files.IsWritableFolder(folder, L"log.txt")); },
            [=](FileSystem& files) { EXPECT_TRUE(files.MayFollow(folder)); },
        };
    }

    MemoryFileSystem disk_;
    CountingWorker worker_;
    SlowDrives drives_;
    TakingItsTime slow_{disk_, worker_, drives_};
    AnsweringFileSystem files_{slow_, drives_, worker_};
    int yields_ = 0;
};

TEST_F(AnsweringFileSystemTest, EveryCallAboutASlowDriveIsMadeByTheWorker) {
    int made = 0;
    for (const auto& operation : Operations(L"Q:")) {
        operation(files_);
        ++made;
        EXPECT_EQ(made, slow_.OnWorker) << "operation " << made;
        EXPECT_GE(worker_.Works, made);
        EXPECT_EQ(worker_.Works, yields_);
    }
    EXPECT_EQ(0, slow_.Directly);
}

TEST_F(AnsweringFileSystemTest, NoneAboutADiskOfTheMachinesOwnIs) {
    for (const auto& operation : Operations(L"C:")) {
        operation(files_);
    }
    EXPECT_EQ(0, worker_.Works);
    EXPECT_EQ(14, slow_.Directly);
}

TEST_F(AnsweringFileSystemTest, ACopyIsTheWorkersWhereEitherEndIsSlow) {
    files_.CopyFile(L"C:\\Data\\file.txt", L"Q:\\Data\\to.txt", false, {});
    files_.CopyFile(L"R:\\Data\\file.txt", L"C:\\Data\\from.txt", false, {});
    EXPECT_EQ(2, slow_.OnWorker);
    EXPECT_EQ("text", disk_.Content(L"Q:\\Data\\to.txt"));
    EXPECT_EQ("text", disk_.Content(L"C:\\Data\\from.txt"));
}

// Listings and text files are closed by the worker too.
TEST_F(AnsweringFileSystemTest, AListingIsWholeAndFetchedSomeAtATime) {
    constexpr int kEntries = 150;
    for (int i = 0; i < kEntries; ++i) {
        disk_.WriteFile(L"Q:\\Many\\" + std::to_wstring(1000 + i), "");
    }
    std::vector<std::wstring> names;
    {
        const auto listing = files_.GetFolder(L"Q:\\Many");
        FileEntry entry;
        while (listing->Next(entry)) {
            names.push_back(entry.Name);
        }
        EXPECT_FALSE(listing->Next(entry));
    }
    ASSERT_EQ(static_cast<std::size_t>(kEntries), names.size());
    EXPECT_EQ(L"1000", names.front());
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(L"1149", names.back());
    EXPECT_LE(worker_.Works, 6);
    EXPECT_EQ(0, slow_.Directly);
}

TEST_F(AnsweringFileSystemTest, TheWorkerAsksAListingWhichFolderItIs) {
    const auto listing = files_.GetFolder(L"Q:\\Data");
    const int before = worker_.Works;
    EXPECT_TRUE(listing->Identity());
    EXPECT_EQ(listing->Identity(), disk_.IdentityOf(L"Q:\\Data"));
    EXPECT_EQ(before + 2, worker_.Works);
    EXPECT_EQ(0, slow_.Directly);
}

TEST_F(AnsweringFileSystemTest, AListingThatBreaksOffGivesWhatItHadBefore) {
    for (const wchar_t* name : {L"1", L"2", L"3", L"4"}) {
        disk_.WriteFile(L"Q:\\Few\\" + std::wstring(name), "");
    }
    slow_.EntriesUntilFailure = 3;
    const auto listing = files_.GetFolder(L"Q:\\Few");
    FileEntry entry;
    ASSERT_TRUE(listing->Next(entry));
    ASSERT_TRUE(listing->Next(entry));
    EXPECT_EQ(L"2", entry.Name);
    EXPECT_EQ(ErrorNumber::DiskNotReady, RuntimeErrorOf([&] { listing->Next(entry); }));
    EXPECT_FALSE(listing->Next(entry));
}

TEST_F(AnsweringFileSystemTest, LinesOfATextFileAreWrittenByTheWorker) {
    const int before = worker_.Works;
    {
        const auto log = files_.OpenForAppending(L"Q:\\Data\\log.txt");
        log->WriteLine(L"line");
        log->Flush();
    }
    EXPECT_EQ(before + 4, worker_.Works) << "opened, written to, flushed, closed";
    EXPECT_EQ(0, slow_.Directly);
    EXPECT_EQ("line\r\n", disk_.Content(L"Q:\\Data\\log.txt"));
}

// A server that has gone.
class SilentRootTest : public AnsweringFileSystemTest {
  protected:
    SilentRootTest() {
        slow_.Takes = 21s;
        drives_.Trouble = ErrorNumber::DiskNotReady;
        EXPECT_FALSE(files_.FileExists(L"Q:\\Data\\missing.txt"));
        slow_.Clear();
        worker_.Works = 0;
    }
};

TEST_F(SilentRootTest, IsNotAskedAgainForTenSeconds) {
    EXPECT_EQ(std::vector<std::wstring>{L"Q:"}, drives_.Looks);
    drives_.Time += 9'999ms;
    EXPECT_FALSE(files_.FileExists(L"Q:\\Data\\file.txt"));
    EXPECT_FALSE(files_.FolderExists(L"Q:\\Data"));
    EXPECT_FALSE(files_.FindFile(L"Q:\\Data\\file.txt"));
    EXPECT_FALSE(files_.IsWritableFolder(L"Q:\\Data", L"log.txt"));
    EXPECT_EQ(ErrorNumber::DiskNotReady,
              RuntimeErrorOf([&] { files_.GetFile(L"Q:\\Data\\file.txt"); }));
    EXPECT_EQ(ErrorNumber::DiskNotReady, RuntimeErrorOf([&] { files_.GetFolder(L"Q:\\Data"); }));
    EXPECT_EQ(ErrorNumber::DiskNotReady, RuntimeErrorOf([&] { files_.CreateFolder(L"Q:\\New"); }));
    EXPECT_EQ(ErrorNumber::DiskNotReady, RuntimeErrorOf([&] {
                  files_.CopyFile(L"C:\\Data\\file.txt", L"Q:\\Data\\new.txt", true, {});
              }));
    EXPECT_TRUE(slow_.Calls().empty());
    EXPECT_EQ(0, worker_.Works);
    drives_.Time += 1ms;
    EXPECT_TRUE(files_.FileExists(L"Q:\\Data\\file.txt"));
}

TEST_F(SilentRootTest, IsNotToldWhatToExpect) {
    class Hinted : public ForwardingFileSystem {
      public:
        using ForwardingFileSystem::ForwardingFileSystem;
        void ExpectCopies(const std::vector<ExpectedCopy>& copies) override {
            Sources.push_back(copies.front().Source);
        }
        std::vector<std::wstring> Sources;
    };
    Hinted hinted(slow_);
    AnsweringFileSystem files(hinted, drives_, worker_);
    EXPECT_FALSE(files.FileExists(L"Q:\\Data\\missing.txt"));
    worker_.Works = 0;
    files.ExpectCopies({{L"C:\\Data\\1", L"Q:\\Data\\1"}});
    files.ExpectCopies({{L"Q:\\Data\\2", L"C:\\Data\\2"}});
    EXPECT_TRUE(hinted.Sources.empty());
    files.ExpectCopies({{L"C:\\Data\\3", L"R:\\Data\\3"}});
    files.ExpectCopies({{L"R:\\Data\\4", L"C:\\Data\\4"}});
    EXPECT_EQ(hinted.Sources, (std::vector<std::wstring>{L"C:\\Data\\3", L"R:\\Data\\4"}));
    EXPECT_EQ(0, worker_.Works) << "a hint waits for nobody";
}

TEST_F(SilentRootTest, KeepsNoOtherFromBeingAsked) {
    EXPECT_TRUE(files_.FileExists(L"R:\\Data\\file.txt"));
    EXPECT_TRUE(files_.FileExists(L"C:\\Data\\file.txt"));
}

TEST_F(SilentRootTest, IsFoundByACallThatFailsToo) {
    EXPECT_EQ(ErrorNumber::PathNotFound, RuntimeErrorOf([&] { files_.GetFolder(L"R:\\None"); }));
    EXPECT_EQ(ErrorNumber::DiskNotReady, RuntimeErrorOf([&] { files_.GetFolder(L"R:\\Data"); }));
}

TEST_F(AnsweringFileSystemTest, ADriveThatAnswersLateOrSaysNoAtOnceIsAskedAgain) {
    slow_.Takes = 21s;  // to begin to turn
    EXPECT_FALSE(files_.FileExists(L"Q:\\Data\\missing.txt"));
    EXPECT_EQ(std::vector<std::wstring>{L"Q:"}, drives_.Looks);
    EXPECT_TRUE(files_.FileExists(L"Q:\\Data\\file.txt"));
    drives_.Trouble = ErrorNumber::PathNotFound;
    EXPECT_TRUE(files_.FileExists(L"Q:\\Data\\file.txt")) << "what is found needs no look";
    slow_.Takes = 999ms;
    EXPECT_FALSE(files_.FileExists(L"Q:\\Data\\missing.txt"));
    EXPECT_TRUE(files_.FileExists(L"Q:\\Data\\file.txt"));
    EXPECT_EQ(1U, drives_.Looks.size());
}

}  // namespace
}  // namespace ambrio
