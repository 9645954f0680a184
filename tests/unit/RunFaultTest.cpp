#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "platform/TemporaryName.h"
#include "settings/SettingKeys.h"
#include "tests/support/EngineBench.h"
#include "tests/support/FailingFileSystem.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;
using Contents = std::map<std::wstring, std::string>;  // by path

constexpr FileSeconds kOld = 13'300'000'000;
constexpr FileSeconds kNew = 13'400'000'000;

const Lines kSources = {L"C:\\A\\1", L"C:\\A\\2", L"C:\\A\\sub\\3", L"C:\\A\\sub\\4",
                        L"C:\\B\\5", L"C:\\B\\6", L"C:\\C\\7",      L"C:\\C\\8"};

bool IsOneOf(const std::wstring& text, const Lines& starts) {
    return std::any_of(starts.begin(), starts.end(),
                       [&](const std::wstring& start) { return text.starts_with(start); });
}

// A small run over three Sets, in which every operation of the engine occurs: new files, files to
// replace, to remove, to leave, a leftover, an archive bit, a read-only copy, yesterday's log.
class FaultyRun {
  public:
    FaultyRun() {
        for (const wchar_t* name : {L"A", L"B", L"C"}) {
            const std::wstring folder = std::wstring(L"C:\\") + name;
            bench_.AddSet(name, folder, L"C:\\Copies\\" + std::wstring(name));
        }
        bench_.Set(L"B", kCopyTypeKey, kCopyTypeArchiveBit);
        bench_.Set(L"B", kClearArchiveBitKey, kYes);
        bench_.Set(L"B", kDeleteCopyArchiveBitKey, kYes);
        bench_.Set(L"C", kCopyTypeKey, kCopyTypeReadOnly);
        bench_.Set(L"C", kOverwriteReadOnlyKey, kYes);
        bench_.Set(kGeneralSection, kSecondarySaverKey, L"Stars");
        bench_.Files.WriteFile(L"C:\\Windows\\System32\\Stars.scr");
        bench_.Files.WriteFile(EngineBench::LogFile(), "old\r\n");
        for (const std::wstring& source : kSources) {
            const FileAttributes bit = source == L"C:\\B\\6" ? 0 : kAttributeArchive;
            bench_.Files.WriteFile(source, "new" + std::string(1, static_cast<char>(source.back())),
                                   bit, kNew);
        }
        for (const wchar_t* copy : {L"A\\2", L"A\\sub\\3", L"B\\6"}) {
            bench_.Files.WriteFile(Copy(copy), "old", 0, kOld);
        }
        bench_.Files.WriteFile(Copy(L"C\\7"), "old", kAttributeReadOnly, kOld);
        bench_.Files.WriteFile(Copy(L"C\\8"), "new8", 0, kNew);
        bench_.Files.WriteFile(Leftover(), "half", 0, kOld);
    }

    void Run(const FileFault& fault) {
        FailingFileSystem failing(bench_.Files, fault);
        const Contents before = Copies();
        ASSERT_NO_THROW(bench_.Run(failing, bench_.Settings));
        failed_ = failing.FailedCall();
        if (failed_) {
            ExpectSourcesWhole();
            ExpectCopiesWhole(before);
            ExpectRightState();
            ExpectRightLog();
        }
    }

    [[nodiscard]] bool MetAFault() const { return failed_.has_value(); }
    [[nodiscard]] const FileCall& FailedCall() const { return *failed_; }

    Contents Copies() {
        Contents contents;
        for (const std::wstring& source : kSources) {
            const std::wstring copy = Copy(source.substr(3));
            if (bench_.Files.FileExists(copy)) {
                contents[copy] = bench_.Files.Content(copy);
            }
        }
        return contents;
    }
    [[nodiscard]] EngineBench& Bench() { return bench_; }
    // What a run without a fault leaves.
    [[nodiscard]] static const Contents& Expected() {
        static const Contents expected = [] {
            FaultyRun run;
            run.Run({.At = 1'000'000});
            return run.Copies();
        }();
        return expected;
    }
    static std::wstring Leftover() { return Copy(L"A\\" + TemporaryName(L"2", 5)); }

  private:
    static std::wstring Copy(const std::wstring& path) { return L"C:\\Copies\\" + path; }
    [[nodiscard]] bool IsLogFault() const {
        return failed_->Path.ends_with(L"Ambrio.log") &&
               failed_->Operation != FileOperation::FileExists;
    }

    void ExpectSourcesWhole() {
        for (const std::wstring& source : kSources) {
            EXPECT_EQ(bench_.Files.Content(source).substr(0, 3), "new")
                << testing::PrintToString(source);
        }
    }

    // Each copy is the old or the new one; each that differs from what was to be is accounted for.
    void ExpectCopiesWhole(const Contents& before) {
        const Contents after = Copies();
        int different = 0;
        for (const std::wstring& source : kSources) {
            const std::wstring copy = Copy(source.substr(3));
            const auto in = [&](const Contents& contents) {
                const auto found = contents.find(copy);
                return found == contents.end() ? std::string("none") : found->second;
            };
            EXPECT_TRUE(in(after) == in(before) || in(after) == in(Expected()));
            different += in(after) == in(Expected()) ? 0 : 1;
        }
        const RunState& state = bench_.State;
        if (!state.Interrupted && state.FolderErrors == 0 &&
            failed_->Operation != FileOperation::FileExists) {
            EXPECT_EQ(different, state.CopyErrors + state.RemoveErrors);
        }
        EXPECT_LE(state.FolderErrors, 1);
        const bool isLeftoverFault = failed_->Path == Leftover();
        EXPECT_TRUE(state.Interrupted || state.FolderErrors > 0 || isLeftoverFault ||
                    IsListingFault() || !bench_.Files.FileExists(Leftover()));
    }
    [[nodiscard]] bool IsListingFault() const {
        return failed_->Path == L"C:\\Copies\\A" &&
               (failed_->Operation == FileOperation::GetFolder ||
                failed_->Operation == FileOperation::Next);
    }

    void ExpectRightState() {
        const RunState& state = bench_.State;
        EXPECT_EQ(bench_.Files.OpenHandles(), 0);
        EXPECT_FALSE(state.CopyInProgress);
        EXPECT_LE(state.CopyErrors, state.FilesCopied);
        EXPECT_LE(state.RemoveErrors, state.CopiesRemoved);
        EXPECT_EQ(state.Interrupted || IsLogFault(), !state.FatalErrorText.empty());
        const Lines& actions = bench_.Host.Actions;
        const auto asked = [&](const std::wstring& action) {
            return std::find(actions.begin(), actions.end(), action) != actions.end();
        };
        EXPECT_TRUE(asked(L"show pointer") && asked(L"leave topmost"));
        EXPECT_EQ(asked(L"unload"), state.Interrupted || SaverIsMissing());
        EXPECT_EQ(asked(L"box  completed "), asked(L"end"));
        EXPECT_FALSE(asked(L"end") && (state.Interrupted || state.HasFailures() || IsLogFault()));
        EXPECT_EQ(asked(L"stop box " + state.FatalErrorText), !state.FatalErrorText.empty());
    }
    [[nodiscard]] bool SaverIsMissing() const {
        return failed_->Path == L"C:\\Windows\\System32\\Stars.scr";
    }

    void ExpectRightLog() {
        Lines log = bench_.Log();
        for (const std::wstring& line : log) {
            EXPECT_TRUE(IsOneOf(line, {L"old", L"~~~", L"Ambrio ", L"'", L"Error ", L"      <",
                                       L"   to <", L"Of ", L"1 folders "}))
                << testing::PrintToString(line);
        }
        if (IsLogFault()) {
            return;
        }
        ASSERT_GE(log.size(), 5U);
        EXPECT_EQ(log.back().substr(0, 3), L"~~~");
        const RunState& state = bench_.State;
        const std::wstring endWord =
            state.Interrupted ? L"interrupted" : (state.HasFailures() ? L"ended" : L"completed");
        EXPECT_TRUE(log[log.size() - 2].starts_with(L"Ambrio " + endWord));
        EXPECT_EQ(std::count(log.begin(), log.end(), L"Ambrio start 11/21/2026 3:49:46 PM"), 1);
        const auto errors = std::count_if(log.begin(), log.end(), [](const std::wstring& line) {
            return line.starts_with(L"Error ");
        });
        EXPECT_LE(errors, 1);
        EXPECT_TRUE(errors == 1 || !state.HasFailures());
    }

    EngineBench bench_;
    std::optional<FileCall> failed_;
};

// One run for each operation that it meets, until a run meets no fault any more.
void FailEachOperationOnce(ErrorNumber number, bool questionsThrow) {
    int operation = 1;
    for (;; ++operation) {
        FaultyRun run;
        run.Run({.At = operation, .Number = number, .QuestionsThrow = questionsThrow});
        if (!run.MetAFault() || testing::Test::HasFailure()) {
            if (run.MetAFault()) {
                ADD_FAILURE() << "at operation " << operation << ", kind "
                              << static_cast<int>(run.FailedCall().Operation) << " on "
                              << testing::PrintToString(run.FailedCall().Path);
            }
            break;
        }
    }
    EXPECT_GT(operation, 80);
}

TEST(RunFault, TheRunWithoutAFaultIsWhatItShouldBe) {
    FaultyRun run;
    run.Run({.At = 1'000'000});
    EXPECT_EQ(run.Copies().size(), kSources.size() - 1);
    EXPECT_FALSE(run.Bench().Files.FileExists(FaultyRun::Leftover()));
    EXPECT_FALSE(run.Bench().State.HasFailures());
    EXPECT_EQ(run.Bench().Host.Actions.back(), L"end");
}

TEST(RunFault, EachOperationMayBeRefusedOnce) {
    FailEachOperationOnce(ErrorNumber::PermissionDenied, false);
}

TEST(RunFault, EachOperationMayMeetAFullDiskOnce) {
    FailEachOperationOnce(ErrorNumber::DiskFull, false);
}

TEST(RunFault, EachOperationMayMissItsPathOnce) {
    FailEachOperationOnce(ErrorNumber::PathNotFound, false);
}

TEST(RunFault, EachOperationMayMeetAnErrorOfItsOwn) {
    FailEachOperationOnce(ErrorNumber::PathFileAccessError, false);
}

// From some moment on nothing works any more.
TEST(RunFault, ADiskThatGoesAwayLosesNothing) {
    for (int operation = 1;; ++operation) {
        FaultyRun run;
        FailingFileSystem failing(
            run.Bench().Files,
            {.At = operation, .Number = ErrorNumber::DiskNotReady, .AndAllAfter = true});
        ASSERT_NO_THROW(run.Bench().Run(failing, run.Bench().Settings));
        if (!failing.Fired()) {
            break;
        }
        EXPECT_NE(run.Bench().Host.Actions.back(), L"end");
        EXPECT_EQ(run.Bench().Files.OpenHandles(), 0);
        for (const std::wstring& source : kSources) {
            EXPECT_EQ(run.Bench().Files.Content(source).substr(0, 3), "new");
        }
        for (const auto& [path, content] : run.Copies()) {
            EXPECT_TRUE(content == "old" || content.substr(0, 3) == "new");
        }
    }
}

}  // namespace
}  // namespace ambrio
