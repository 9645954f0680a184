// Whole runs with copies made ahead of their turn.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "platform/CopyAhead.h"
#include "platform/RuntimeError.h"
#include "tests/support/AtOncePool.h"
#include "tests/support/EngineBench.h"
#include "tests/support/PreparingFileSystem.h"

namespace ambrio {
namespace {

using Names = PreparingFileSystem::Names;

class AheadRunTest : public testing::Test {
  protected:
    AheadRunTest() {
        Bench.AddSet(L"S", L"C:\\From", L"C:\\To");
        for (const wchar_t* name : {L"1", L"2", L"3", L"4", L"sub\\5", L"sub\\6", L"sub\\7"}) {
            Bench.Files.WriteFile(L"C:\\From\\" + std::wstring(name), "new", 0, 13'100'000'000);
        }
    }
    void Run() { Bench.Run(Ahead, Bench.Settings); }
    [[nodiscard]] bool HasTemporary(const std::wstring& start = {}) {
        const auto lines = Bench.Files.Snapshot();
        return std::any_of(lines.begin(), lines.end(), [&](const std::wstring& line) {
            return line.find(start + L"~ambrio-") != std::wstring::npos;
        });
    }

    EngineBench Bench;
    PreparingFileSystem Files{Bench.Files};
    AtOncePool Pool;
    CopyAhead Ahead{Files, Pool};
};

TEST_F(AheadRunTest, EveryFileIsMadeAheadAndFinishedAtItsTurn) {
    Run();
    EXPECT_EQ(Files.Finished, 7);
    EXPECT_EQ(Files.CallsOf(FileOperation::CopyFile), 0);
    EXPECT_EQ(Bench.State.FilesCopied, 7);
    EXPECT_FALSE(HasTemporary());
    EXPECT_FALSE(Pool.IsOpen()) << "the threads end with the run";
}

TEST_F(AheadRunTest, FilesThatHaveTheirCopiesAreNotExpected) {
    Run();
    Files.Prepared.clear();
    Bench.Files.WriteFile(L"C:\\From\\3", "newer", 0, 13'100'000'001);
    Run();
    EXPECT_EQ(Files.Prepared, Names{}) << "one file is not worth a thread";
    EXPECT_EQ(Bench.Files.Content(L"C:\\To\\3"), "newer");
    for (const wchar_t* name : {L"1", L"2", L"4"}) {
        Bench.Files.WriteFile(L"C:\\From\\" + std::wstring(name), "newer", 0, 13'100'000'001);
    }
    Run();
    EXPECT_EQ(Files.Prepared.size(), 3U);
}

// The walk goes on with the folders that follow.
TEST_F(AheadRunTest, AfterAnInterruptionNothingIsExpectedInTheFoldersThatFollow) {
    Bench.Files.Remove(L"C:\\From");
    for (const wchar_t* name : {L"a\\1", L"a\\2", L"a\\3", L"b\\1", L"b\\2", L"b\\3"}) {
        Bench.Files.WriteFile(L"C:\\From\\" + std::wstring(name), "new");
    }
    Bench.Host.OnDoEvents = [this](int) {
        Bench.Signals.Interrupted = Bench.Files.FileExists(L"C:\\To\\a\\2");
    };
    Run();
    EXPECT_TRUE(Bench.Files.FileExists(L"C:\\To\\b\\1"));
    EXPECT_EQ(Files.Prepared, (Names{L"C:\\From\\a\\1", L"C:\\From\\a\\2", L"C:\\From\\a\\3"}));
    EXPECT_FALSE(HasTemporary());
}

// Each of these would only be thrown away.
TEST_F(AheadRunTest, NothingIsExpectedThatWillHardlyBeCopied) {
    constexpr FileSeconds kTime = 13'100'000'000;
    Bench.Set(L"S", L"CopyType", L"ReadOnly");
    Bench.Files.Remove(L"C:\\From");
    const auto write = [&](const wchar_t* name, FileSeconds time, FileAttributes old) {
        Bench.Files.WriteFile(L"C:\\From\\" + std::wstring(name), "new", 0, kTime);
        Bench.Files.WriteFile(L"C:\\To\\" + std::wstring(name), "old", old, time);
    };
    write(L"as new", kTime, 0);
    write(L"refuses", kTime - 1, kAttributeReadOnly);
    Bench.Files.WriteFile(L"C:\\From\\read-only", "new", kAttributeReadOnly, kTime);
    Bench.Files.WriteFile(L"C:\\From\\Case", "new", 0, kTime);
    Bench.Files.WriteFile(L"C:\\To\\case", "old", 0, kTime - 1);
    Bench.Files.MakeLink(L"C:\\From\\link", L"C:\\From\\Case", MemoryFileSystem::LinkKind::ToFile);
    for (const wchar_t* name : {L"behind 1", L"behind 2", L"behind 3"}) {
        write(name, kTime - 1, 0);
    }
    Run();
    EXPECT_EQ(Files.Prepared,
              (Names{L"C:\\From\\behind 1", L"C:\\From\\behind 2", L"C:\\From\\behind 3"}));
    EXPECT_EQ(Files.Finished, 3);
}

TEST_F(AheadRunTest, TheOnlyFileOfAFolderIsNotExpected) {
    Bench.Files.Remove(L"C:\\From");
    Bench.Files.WriteFile(L"C:\\From\\only", "new");
    CopyAhead eager(Files, Pool, 0);
    Bench.Run(eager, Bench.Settings);
    EXPECT_EQ(Files.Prepared, Names{});
    EXPECT_EQ(Files.CallsOf(FileOperation::IdentityOf), 0);
    EXPECT_TRUE(Bench.Files.FileExists(L"C:\\To\\only"));
}

TEST_F(AheadRunTest, NoCopyIsLookedForWhereNoneIsKnown) {
    Run();
    EXPECT_EQ(Files.SeemedNew, 7);
    for (const wchar_t* name : {L"1", L"2", L"3"}) {
        Bench.Files.WriteFile(L"C:\\From\\" + std::wstring(name), "newer", 0, 13'100'000'001);
    }
    Run();
    EXPECT_EQ(Files.SeemedNew, 7);
    EXPECT_EQ(Files.Finished, 10);
}

TEST_F(AheadRunTest, AnInterruptedRunLeavesNothingAndBeginsNothing) {
    Bench.InterruptAtEvent(2);
    Run();
    EXPECT_TRUE(Bench.Signals.Interrupted);
    EXPECT_FALSE(HasTemporary());
    EXPECT_EQ(Bench.State.FilesCopied, 1);
    EXPECT_EQ(Files.Prepared.size(), 4U);
}

// A listing in which somebody else has a hand.
class OtherListings : public PreparingFileSystem {
  public:
    using PreparingFileSystem::PreparingFileSystem;

    std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) override {
        class Changed : public ForwardingFolderReader {
          public:
            Changed(std::unique_ptr<FolderReader> target, std::function<void(FileEntry&)> change)
                : ForwardingFolderReader(std::move(target)), change_(std::move(change)) {}
            bool Next(FileEntry& entry) override {
                const bool found = ForwardingFolderReader::Next(entry);
                if (found) {
                    change_(entry);
                }
                return found;
            }

          private:
            std::function<void(FileEntry&)> change_;
        };
        auto reader = PreparingFileSystem::GetFolder(path);
        const auto change = Changes.find(path);
        return change == Changes.end()
                   ? std::move(reader)
                   : std::make_unique<Changed>(std::move(reader), change->second);
    }

    std::map<std::wstring, std::function<void(FileEntry&)>> Changes;  // by folder
};

class OtherListingsTest : public AheadRunTest {
  protected:
    void Run() {
        CopyAhead ahead(Listings, Pool);
        Bench.Run(ahead, Bench.Settings);
    }
    OtherListings Listings{Bench.Files};
};

TEST_F(OtherListingsTest, AnOddNameIsNoPlaceForATemporary) {
    Listings.Changes[L"C:\\From"] = [](FileEntry& entry) {
        if (entry.Name == L"2") {
            entry.Name = L"..\\..\\2";
        }
    };
    Run();
    EXPECT_EQ(Listings.Prepared.size(), 6U);
    EXPECT_EQ(Bench.State.FolderErrors, 1);
}

TEST_F(OtherListingsTest, WhereTheCopiesCannotBeListedNothingIsExpected) {
    Bench.Files.MakeFolder(L"C:\\To\\sub");
    for (const wchar_t* folder : {L"C:\\To", L"C:\\To\\sub"}) {
        Listings.Changes[folder] = [](FileEntry&) {
            throw RuntimeError(ErrorNumber::PathFileAccessError);
        };
        Bench.Files.WriteFile(folder + std::wstring(L"\\any"), "any");
    }
    Run();
    EXPECT_EQ(Listings.Prepared, Names{});
    EXPECT_EQ(Bench.State.FilesCopied, 7);
}

TEST_F(OtherListingsTest, EachFileOfALargeFolderIsExpectedOnce) {
    Bench.Files.Remove(L"C:\\From");
    for (int i = 0; i < 100; ++i) {
        Bench.Files.WriteFile(L"C:\\From\\" + std::to_wstring(i), "new");
    }
    int withoutAny = 0;
    Bench.Host.OnDoEvents = [&](int) {
        if (Listings.Finished > 0 && Listings.Finished < 90) {
            withoutAny += HasTemporary() ? 0 : 1;
        }
    };
    Run();
    EXPECT_EQ(withoutAny, 0) << "the threads always have something to do";
    EXPECT_EQ(Listings.Prepared.size(), 100U);
    EXPECT_EQ(Listings.Finished, 100);
}

TEST_F(OtherListingsTest, InAFolderThatIsCopiedToItselfNothingIsExpectedWhateverItLooksLike) {
    Bench.Set(L"S", L"Destination", L"C:\\Same");
    Bench.Files.MakeLink(L"C:\\Same", L"C:\\From", MemoryFileSystem::LinkKind::ToFolder);
    for (const wchar_t* folder : {L"C:\\Same", L"C:\\Same\\sub"}) {
        Listings.Changes[folder] = [](FileEntry& entry) { --entry.DateLastModified; };
    }
    Run();
    EXPECT_EQ(Listings.Prepared, Names{});
    EXPECT_EQ(Bench.State.FilesChecked, 7);
}

TEST_F(AheadRunTest, NothingIsLeftOfWhatTurnedOutNotToBeCopied) {
    bool wasLeft = true;
    Bench.Host.OnDoEvents = [&](int) {
        if (Bench.Files.FolderExists(L"C:\\To") && !Bench.Files.FileExists(L"C:\\To\\3")) {
            Bench.Files.WriteFile(L"C:\\To\\3", "theirs", 0, 13'200'000'000);
        }
        if (Bench.Files.FolderExists(L"C:\\To\\sub")) {
            wasLeft = HasTemporary(L"C:\\To\\");
        }
    };
    Bench.Files.MakeFolder(L"C:\\To");
    Run();
    EXPECT_EQ(Files.Prepared.size(), 7U);
    EXPECT_EQ(Files.Finished, 6);
    EXPECT_FALSE(wasLeft);
}

TEST_F(AheadRunTest, InAFolderThatIsCopiedToItselfNothingIsExpected) {
    Bench.Set(L"S", L"Destination", L"C:\\From");
    Bench.Files.MakeLink(L"C:\\Same", L"C:\\From", MemoryFileSystem::LinkKind::ToFolder);
    Run();
    Bench.Set(L"S", L"Destination", L"C:\\Same");
    Run();
    EXPECT_EQ(Files.Prepared, Names{});
}

}  // namespace
}  // namespace ambrio
