#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/faults/FaultScene.h"
#include "tests/support/FailingFileSystem.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;
using Contents = std::map<std::wstring, std::string>;  // by path

constexpr int kNever = 1'000'000;

bool IsOneOf(const std::wstring& text, const Lines& starts) {
    return std::any_of(starts.begin(), starts.end(),
                       [&](const std::wstring& start) { return text.starts_with(start); });
}

// One run of the scene in which one operation fails, or that one and all after it.
class FaultyRun {
  public:
    void Run(const FileFault& fault, bool ahead = false) {
        FailingFileSystem failing(ahead ? bench_.FilesAhead() : bench_.Files, fault);
        const Contents before = Copies();
        ASSERT_NO_THROW(bench_.Run(failing, bench_.Settings));
        failed_ = failing.FailedCall();
        ExpectSourcesWhole();
        EXPECT_EQ(bench_.Files.OpenHandles(), 0);
        if (failed_) {
            ExpectCopiesWhole(before);
            if (!fault.AndAllAfter) {
                ExpectAllAccountedFor();
                ExpectRightState();
                ExpectRightLog();
            }
        }
    }

    [[nodiscard]] bool MetAFault() const { return failed_.has_value(); }
    [[nodiscard]] const FileCall& FailedCall() const { return *failed_; }

    Contents Copies() {
        Contents contents;
        for (const PlannedFile& file : kPlannedFiles) {
            if (bench_.Files.FileExists(file.Copy())) {
                contents[file.Copy()] = bench_.Files.Content(file.Copy());
            }
        }
        return contents;
    }
    [[nodiscard]] EngineBench& Bench() { return bench_; }
    // What a run without a fault leaves.
    [[nodiscard]] static const Contents& Expected() {
        static const Contents expected = [] {
            FaultyRun run;
            run.Run({.At = kNever});
            return run.Copies();
        }();
        return expected;
    }
    // Those that exist before the run, as CopyFolder and LeftoverIn take them.
    static Lines FoldersWithLeftovers() {
        Lines folders;
        for (const wchar_t* set : {L"B", L"C"}) {
            for (const wchar_t* folder : kFoldersOfASet) {
                folders.push_back(std::wstring(set) + folder);
            }
        }
        return folders;
    }

  private:
    [[nodiscard]] bool IsLogFault() const {
        return failed_->Path.ends_with(L"Ambrio.log") &&
               failed_->Operation != FileOperation::FileExists;
    }

    void ExpectSourcesWhole() {
        for (const PlannedFile& file : kPlannedFiles) {
            EXPECT_EQ(bench_.Files.Content(file.Source()), NewContent(file));
        }
    }

    static std::string In(const Contents& contents, const PlannedFile& file) {
        const auto found = contents.find(file.Copy());
        return found == contents.end() ? std::string("none") : found->second;
    }

    void ExpectCopiesWhole(const Contents& before) {
        const Contents after = Copies();
        for (const PlannedFile& file : kPlannedFiles) {
            const std::string content = In(after, file);
            EXPECT_TRUE(content == In(before, file) || content == In(Expected(), file)) << content;
        }
    }

    // Each copy that differs from what was to be is counted, each leftover that stays has a reason.
    void ExpectAllAccountedFor() {
        const RunState& state = bench_.State;
        EXPECT_LE(state.FolderErrors, 1);
        if (bench_.Signals.Interrupted || state.FolderErrors > 0) {
            return;
        }
        if (failed_->Operation != FileOperation::FileExists) {
            const Contents after = Copies();
            const auto different = std::count_if(
                kPlannedFiles.begin(), kPlannedFiles.end(),
                [&](const auto& file) { return In(after, file) != In(Expected(), file); });
            EXPECT_EQ(different, state.CopyErrors + state.RemoveErrors);
        }
        for (const std::wstring& folder : FoldersWithLeftovers()) {
            const bool isListingFault = failed_->Path == CopyFolder(folder) &&
                                        (failed_->Operation == FileOperation::GetFolder ||
                                         failed_->Operation == FileOperation::Next);
            const std::wstring leftover = LeftoverIn(folder);
            const std::wstring ofSource =
                FileSystem::BuildPath(SourceFolder(folder), NameOfLeftover());
            EXPECT_TRUE(isListingFault || failed_->Path == leftover || failed_->Path == ofSource ||
                        !bench_.Files.FileExists(leftover));
        }
    }

    void ExpectRightState() {
        const RunState& state = bench_.State;
        EXPECT_FALSE(bench_.Signals.CopyInProgress);
        EXPECT_LE(state.CopyErrors, state.FilesCopied);
        EXPECT_LE(state.RemoveErrors, state.CopiesRemoved);
        EXPECT_EQ(bench_.Signals.Interrupted || IsLogFault(), !state.FatalErrorText.empty());
        const Lines& actions = bench_.Host.Actions;
        const auto asked = [&](const std::wstring& action) {
            return std::find(actions.begin(), actions.end(), action) != actions.end();
        };
        EXPECT_TRUE(asked(L"show pointer") && asked(L"leave topmost"));
        EXPECT_EQ(asked(L"unload"), bench_.Signals.Interrupted || SaverIsMissing());
        EXPECT_EQ(asked(L"box  completed "), asked(L"end"));
        EXPECT_FALSE(asked(L"end") &&
                     (bench_.Signals.Interrupted || state.HasFailures() || IsLogFault()));
        // Advice may follow.
        const bool isTold = std::any_of(actions.begin(), actions.end(), [&](const auto& action) {
            return action.starts_with(L"stop box " + state.FatalErrorText);
        });
        EXPECT_EQ(isTold, !state.FatalErrorText.empty());
    }
    [[nodiscard]] bool SaverIsMissing() const {
        return failed_->Path == L"C:\\Windows\\System32\\Stars.scr";
    }

    void ExpectRightLog() {
        Lines log = bench_.Log();
        for (const std::wstring& line : log) {
            EXPECT_TRUE(IsOneOf(line, {L"yesterday", L"~~~", L"Ambrio ", L"'", L"Error ",
                                       L"      <", L"   to <", L"Of ", L"1 folders "}))
                << testing::PrintToString(line);
        }
        if (IsLogFault()) {
            return;
        }
        ASSERT_GE(log.size(), 5U);
        EXPECT_EQ(log.back().substr(0, 3), L"~~~");
        const RunState& state = bench_.State;
        const std::wstring endWord = bench_.Signals.Interrupted
                                         ? L"interrupted"
                                         : (state.HasFailures() ? L"ended" : L"completed");
        EXPECT_TRUE(log[log.size() - 2].starts_with(L"Ambrio " + endWord));
        EXPECT_EQ(std::count(log.begin(), log.end(), L"Ambrio start 11/21/2026 3:49:46 PM"), 1);
        const auto errors = std::count_if(log.begin(), log.end(), [](const std::wstring& line) {
            return line.starts_with(L"Error ");
        });
        EXPECT_LE(errors, 1);
        EXPECT_TRUE(errors == 1 || !state.HasFailures());
    }

    FaultScene scene_;
    EngineBench& bench_ = scene_.Bench;
    std::optional<FileCall> failed_;
};

// One run for each operation that it meets, until a run meets no fault any more.
void FailEachOperationOnce(ErrorNumber number, bool ahead = false) {
    int operation = 1;
    for (;; ++operation) {
        FaultyRun run;
        run.Run({.At = operation, .Number = number}, ahead);
        if (!run.MetAFault()) {
            break;
        }
        ASSERT_FALSE(testing::Test::HasFailure())
            << "at operation " << operation << ", kind "
            << static_cast<int>(run.FailedCall().Operation) << " on "
            << testing::PrintToString(run.FailedCall().Path);
    }
    EXPECT_GT(operation, 200);
}

TEST(RunFault, TheRunWithoutAFaultIsWhatItShouldBe) {
    FaultyRun run;
    run.Run({.At = kNever});
    for (const PlannedFile& file : kPlannedFiles) {
        const bool isRemoved =
            file.What == Plan::RemoveCopy || file.What == Plan::RemoveReadOnlyCopy;
        EXPECT_EQ(run.Copies().contains(file.Copy()), !isRemoved);
    }
    for (const std::wstring& folder : FaultyRun::FoldersWithLeftovers()) {
        EXPECT_FALSE(run.Bench().Files.FileExists(LeftoverIn(folder)));
    }
    EXPECT_FALSE(run.Bench().State.HasFailures());
    EXPECT_EQ(run.Bench().Host.Actions.back(), L"end");
}

TEST(RunFault, EachOperationMayBeRefusedOnce) {
    FailEachOperationOnce(ErrorNumber::PermissionDenied);
}

TEST(RunFault, EachOperationMayBeRefusedOnceWithCopiesMadeAhead) {
    FailEachOperationOnce(ErrorNumber::PermissionDenied, true);
}

TEST(RunFault, EachOperationMayMeetAFullDiskOnce) {
    FailEachOperationOnce(ErrorNumber::DiskFull);
}

TEST(RunFault, EachOperationMayMissItsPathOnce) {
    FailEachOperationOnce(ErrorNumber::PathNotFound);
}

TEST(RunFault, EachOperationMayMeetAnErrorOfItsOwn) {
    FailEachOperationOnce(ErrorNumber::PathFileAccessError);
}

// From some moment on nothing works any more.
TEST(RunFault, ADiskThatGoesAwayLosesNothing) {
    for (int operation = 1;; ++operation) {
        FaultyRun run;
        run.Run({.At = operation, .Number = ErrorNumber::DiskNotReady, .AndAllAfter = true});
        if (!run.MetAFault()) {
            break;
        }
        EXPECT_NE(run.Bench().Host.Actions.back(), L"end");
    }
}

}  // namespace
}  // namespace ambrio
