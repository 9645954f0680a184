#include "engine/RunLog.h"

#include <gtest/gtest.h>

#include "engine/EngineTexts.h"
#include "engine/LogPath.h"
#include "settings/SettingKeys.h"
#include "tests/support/CountingFileSystem.h"
#include "tests/support/EngineBench.h"
#include "tests/support/FailingFileSystem.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;

class RunLogTest : public testing::Test {
  protected:
    RunLogTest() {
        Bench.State.RunStartLine = L"Ambrio start now";
        Bench.Files.MakeFolder(L"C:\\Data");
        Bench.AddSet(L"A", L"C:\\Data", L"C:\\Copy");
    }

    void StartedBefore(const std::wstring& text) {
        Bench.Files.WriteFile(EngineBench::LogFile(), "old\r\n");
        Bench.Set(kGeneralSection, kLastRunKey, text);
    }
    // Whether the day's first run found the log cleared.
    [[nodiscard]] bool IsOldLogGone() {
        Bench.Run();
        return !Bench.HasLog({L"old"});
    }

    EngineBench Bench;
    RunLog Log{Bench.Files, Bench.App, Bench.State};
};

TEST_F(RunLogTest, WritesTheHeaderBeforeTheFirstLineOnly) {
    EXPECT_FALSE(Bench.Files.FileExists(EngineBench::LogFile()));
    Log.WriteLog(L"one", false);
    Log.WriteLog(L"two", false);
    EXPECT_EQ(Bench.Log(), (Lines{kSeparatorLine, L"Ambrio start now", L"one", L"two"}));
}

TEST_F(RunLogTest, StaysOpenOnlyWhenAskedTo) {
    Log.WriteLog(L"one", true);
    EXPECT_EQ(Bench.Files.OpenHandles(), 1);
    Log.WriteLog(L"two", false);
    EXPECT_EQ(Bench.Files.OpenHandles(), 0);
}

TEST_F(RunLogTest, ABlockOfEntriesIsFlushedAtItsEndAndASingleOneIsNot) {
    CountingFileSystem counting(Bench.Files);
    RunLog log(counting, Bench.App, Bench.State);
    log.WriteLog(L"one", false);
    log.WriteLog(L"two", true);
    log.WriteLog(L"three", true);
    EXPECT_EQ(counting.CallsOf(FileOperation::Flush), 0);
    log.WriteLog(L"four", false);
    EXPECT_EQ(counting.CallsOf(FileOperation::Flush), 1);
    EXPECT_EQ(counting.Calls().back().Operation, FileOperation::Flush);
    EXPECT_EQ(counting.Calls().back().Path, EngineBench::LogFile());
    log.WriteLog(L"five", false);
    EXPECT_EQ(counting.CallsOf(FileOperation::Flush), 1);
}

TEST_F(RunLogTest, AFailureNamesTheLogAndTheNextLineStartsAfresh) {
    FailingFileSystem failing(
        Bench.Files, {.At = 3, .Number = ErrorNumber::DiskFull, .Kind = FileOperation::WriteLine});
    RunLog log(failing, Bench.App, Bench.State);
    try {
        log.WriteLog(L"one", true);
        FAIL() << "no failure";
    } catch (const LogFailure& failure) {
        EXPECT_EQ(failure.LogText(),
                  L"Error 61 - Disk full while writing \r\n"
                  L"      <C:\\Ambrio\\Ambrio.log>");
    }
    EXPECT_EQ(Bench.Files.OpenHandles(), 0);
    log.WriteLog(L"two", false);
    EXPECT_EQ(Bench.Log(), (Lines{kSeparatorLine, L"Ambrio start now", L"two"}));
}

TEST_F(RunLogTest, LiesInTheUsersDataWhereTheProgramsFolderCannotBeWritten) {
    Bench.Files.Node(L"C:\\Ambrio").WritingDenied = true;
    Log.WriteLog(L"one", false);
    EXPECT_EQ(Log.Path(), L"C:\\Users\\me\\Local\\Ambrio\\Ambrio.log");
    EXPECT_TRUE(Bench.Files.FileExists(Log.Path()));
}

// As a run of an administrator may leave it, or a program that has it open.
TEST_F(RunLogTest, LiesInTheUsersDataWhereTheOldLogCannotBeWritten) {
    Bench.Files.WriteFile(EngineBench::LogFile(), "theirs", kAttributeReadOnly);
    Log.WriteLog(L"one", false);
    EXPECT_EQ(Log.Path(), L"C:\\Users\\me\\Local\\Ambrio\\Ambrio.log");
    EXPECT_EQ(Bench.Files.Content(EngineBench::LogFile()), "theirs");
    Bench.Files.Node(EngineBench::LogFile()).Attributes = kAttributeArchive;
    EXPECT_EQ(LogPath(Bench.App, Bench.Files), EngineBench::LogFile());
    Bench.Files.Node(EngineBench::LogFile()).Locked = true;
    EXPECT_EQ(LogPath(Bench.App, Bench.Files), Log.Path());
}

TEST_F(RunLogTest, KeepsItsPlaceForTheWholeRun) {
    const std::wstring path = Log.Path();
    Bench.Files.Node(L"C:\\Ambrio").WritingDenied = true;
    EXPECT_EQ(Log.Path(), path);
    EXPECT_NE(LogPath(Bench.App, Bench.Files), path);
}

TEST_F(RunLogTest, AFolderThatCannotBeMadeShowsWhenTheLogIsOpened) {
    Bench.Files.Node(L"C:\\Ambrio").WritingDenied = true;
    Bench.Files.Node(L"C:\\Users\\me\\Local").WritingDenied = true;
    EXPECT_EQ(RuntimeErrorOf([&] { Log.WriteLog(L"one", false); }), ErrorNumber::PathNotFound);
}

TEST_F(RunLogTest, TheFirstRunEverDeletesAnOldLog) {
    Bench.Files.WriteFile(EngineBench::LogFile(), "old\r\n");
    EXPECT_TRUE(IsOldLogGone());
    EXPECT_EQ((Bench.Settings.Values[{kGeneralSection, kLastRunKey}]), L"11/21/2026 3:49:46 PM");
}

TEST_F(RunLogTest, TwoMinutesAroundMidnightAreANewDay) {
    Bench.Time.Time = {2026, 11, 21, 0, 1, 0};
    StartedBefore(L"11/20/2026 11:59:00 PM");
    EXPECT_TRUE(IsOldLogGone());
}

TEST_F(RunLogTest, ALastRunThatNobodyCanReadCountsAsANewDay) {
    StartedBefore(L"some day");
    EXPECT_TRUE(IsOldLogGone());
}

TEST_F(RunLogTest, ALastRunInTheFutureKeepsTheLog) {
    StartedBefore(L"11/22/2026 1:00:00 AM");
    EXPECT_FALSE(IsOldLogGone());
}

TEST_F(RunLogTest, TwoRunsOnOneDayLeaveABlockEach) {
    Bench.Run();
    const Lines first = Bench.Log();
    Bench.Run();
    Lines both = first;
    both.insert(both.end(), first.begin(), first.end());
    EXPECT_EQ(Bench.Log(), both);
}

// Wanted: the option is there for the dialog alone.
TEST_F(RunLogTest, ANewDayClearsTheLogWhateverClearLogDailyHolds) {
    for (const wchar_t* value : {kYes, kNo, L""}) {
        StartedBefore(L"11/20/2026 3:00:00 PM");
        Bench.Set(kGeneralSection, kClearLogDailyKey, value);
        EXPECT_TRUE(IsOldLogGone());
        StartedBefore(L"11/21/2026 3:00:00 PM");
        EXPECT_FALSE(IsOldLogGone());
    }
}

TEST_F(RunLogTest, LogOnlyErrorsWithoutFailuresLeavesTheLogAloneButForANewDay) {
    Bench.Set(kGeneralSection, kLogOnlyErrorsKey, kYes);
    StartedBefore(L"11/21/2026 3:00:00 PM");
    Bench.Run();
    EXPECT_EQ(Bench.Log(), Lines{L"old"});
    StartedBefore(L"11/20/2026 3:00:00 PM");
    Bench.Run();
    EXPECT_FALSE(Bench.Files.FileExists(EngineBench::LogFile()));
}

TEST_F(RunLogTest, AReadOnlyLogIsNotDeletedByForce) {
    StartedBefore(L"11/20/2026 3:00:00 PM");
    Bench.Files.Node(EngineBench::LogFile()).Attributes = kAttributeReadOnly;
    const std::wstring other = L"C:\\Users\\me\\Local\\Ambrio\\Ambrio.log";
    Bench.Files.WriteFile(other, "other", kAttributeReadOnly);
    Bench.Run();
    EXPECT_EQ(Bench.Files.Content(EngineBench::LogFile()), "old\r\n");
    EXPECT_EQ(Bench.Files.Content(other), "other");
    ASSERT_FALSE(Bench.Host.Actions.empty());
    EXPECT_TRUE(
        Bench.State.FatalErrorText.starts_with(L"Error 70 - Permission denied while deleting "));
}

}  // namespace
}  // namespace ambrio
