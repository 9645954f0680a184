#include "engine/RunDriver.h"

#include <gtest/gtest.h>

#include "ProductVersion.h"
#include "engine/EngineTexts.h"
#include "settings/SettingKeys.h"
#include "tests/support/EngineBench.h"
#include "tests/support/FailingFileSystem.h"
#include "tests/support/FailingSettingsStore.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;

const std::wstring kNow = L"11/21/2026 3:49:46 PM";
const std::wstring kCleanSentence = L"Of 1 files checked, 1 were copied; 0 copies were removed.";
const std::wstring kFailedSentence =
    L"Of 1 files checked, 0 were copied and 1 failed to copy; 0 copies were removed.";

class RunDriverTest : public testing::Test {
  protected:
    RunDriverTest() {
        Bench.Files.WriteFile(L"C:\\Data\\a.txt", "a");
        Bench.AddSet(L"Letters", L"C:\\Data", L"C:\\Copy");
    }

    // The copy would have to be replaced and cannot be.
    void MakeOneCopyFail() {
        Bench.Files.WriteFile(L"C:\\Copy\\a.txt", "old", kAttributeReadOnly, 1);
    }
    void UseSecondarySaver() { Bench.Set(kGeneralSection, kSecondarySaverKey, L"Stars"); }
    void InstallSecondarySaver(const std::wstring& folder) {
        UseSecondarySaver();
        Bench.Files.WriteFile(folder + L"\\Stars.scr");
    }
    // What was asked of the host after the pointer and the window were put right.
    [[nodiscard]] Lines LastActions() const {
        const Lines& all = Bench.Host.Actions;
        EXPECT_GE(all.size(), 2U);
        EXPECT_EQ(all[0], L"show pointer");
        EXPECT_EQ(all[1], L"leave topmost");
        return {all.begin() + 2, all.end()};
    }

    EngineBench Bench;
};

TEST_F(RunDriverTest, ACleanRunLogsItsBlockAndLeavesTheFormUp) {
    Bench.Run();
    EXPECT_EQ(Bench.Log(), (Lines{kSeparatorLine, L"Ambrio start " + kNow, L"'Letters' start",
                                  L"'Letters' complete", kCleanSentence,
                                  L"Ambrio completed " + kNow, kSeparatorLine}));
    EXPECT_EQ(std::wstring(kSeparatorLine), std::wstring(42, L'~'));
    EXPECT_EQ(LastActions(), Lines());
    EXPECT_EQ(Bench.FailureSummary, L"");
    EXPECT_EQ(Bench.Files.Content(L"C:\\Copy\\a.txt"), "a");
}

TEST_F(RunDriverTest, ShowsTitleAndVersionAndHandlesTheClipAroundTheRun) {
    Bench.Run();
    const Lines& events = Bench.Panel.Events;
    ASSERT_GE(events.size(), 3U);
    EXPECT_EQ(events[0], L"title=Ambrio v" + std::to_wstring(AMBRIO_VERSION_MAJOR) + L"." +
                             std::to_wstring(AMBRIO_VERSION_MINOR));
    EXPECT_EQ(events[1], L"open C:\\Ambrio\\filecopy.avi");
    EXPECT_EQ(events.back(), L"close");
}

TEST_F(RunDriverTest, ACleanRunUnderLogOnlyErrorsTouchesNoLogAndStartsNoSecondarySaver) {
    Bench.Set(kGeneralSection, kLogOnlyErrorsKey, kYes);
    InstallSecondarySaver(L"C:\\Windows");
    Bench.Run();
    EXPECT_FALSE(Bench.Files.FileExists(EngineBench::LogFile()));
    EXPECT_EQ(LastActions(), Lines());
}

TEST_F(RunDriverTest, OneCopyFailureEndsTheRunWithItsCountAndWithoutASecondarySaver) {
    MakeOneCopyFail();
    InstallSecondarySaver(L"C:\\Windows");
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog({kFailedSentence, L"Ambrio ended " + kNow, kSeparatorLine}));
    EXPECT_EQ(LastActions(), Lines());
    EXPECT_EQ(Bench.FailureSummary, L"1 files failed to copy.\r\n\r\n\r\nSee " +
                                        EngineBench::LogFile() + L" for details.");
}

TEST_F(RunDriverTest, FailuresAreLoggedWithTheClosingBlockUnderLogOnlyErrorsToo) {
    MakeOneCopyFail();
    Bench.Set(kGeneralSection, kLogOnlyErrorsKey, kYes);
    Bench.Run();
    EXPECT_EQ(Bench.Log(), (Lines{kSeparatorLine, L"Ambrio start " + kNow,
                                  L"Error 70 - Permission denied while copying ",
                                  L"      <C:\\Data\\a.txt>", L"   to <C:\\Copy\\a.txt>",
                                  kFailedSentence, L"Ambrio ended " + kNow, kSeparatorLine}));
}

TEST_F(RunDriverTest, AnInterruptedRunUnloadsTheForm) {
    InstallSecondarySaver(L"C:\\Windows");
    Bench.InterruptAtEvent(1);
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog({L"Ambrio interrupted " + kNow, kSeparatorLine}));
    EXPECT_EQ(LastActions(), Lines{L"unload"});
}

TEST_F(RunDriverTest, AnInterruptedRunLeavesTheFormToTheEndTimerWhenThatIsEnabled) {
    Bench.Host.EndTimerEnabled = true;
    Bench.InterruptAtEvent(1);
    Bench.Run();
    EXPECT_EQ(LastActions(), Lines());
}

TEST_F(RunDriverTest, InputBeforeTheRunStopsItAtOnce) {
    Bench.Signals.Interrupted = true;
    Bench.Run();
    EXPECT_FALSE(Bench.Files.FolderExists(L"C:\\Copy"));
    EXPECT_EQ(Bench.Panel.Captions[PanelLabel::lblSet], L"-");
    EXPECT_EQ(Bench.Log(), (Lines{kSeparatorLine, L"Ambrio start " + kNow,
                                  L"Of 0 files checked, 0 were copied; 0 copies were removed.",
                                  L"Ambrio interrupted " + kNow, kSeparatorLine}));
    EXPECT_EQ(LastActions(), Lines{L"unload"});
}

// They were there before the run and are the form's to change.
TEST_F(RunDriverTest, ARunTouchesNoSignalOfTheFormAndCountsFromNothing) {
    MakeOneCopyFail();
    Bench.Run();
    EXPECT_EQ(Bench.State.CopyErrors, 1);
    RunSignals signals{.RunStarted = true, .RunFinished = true};
    Bench.Files.Remove(L"C:\\Copy");
    RunDriver driver(Bench.App, Bench.Files, Bench.Settings, Bench.Time, Bench.Panel, Bench.Host,
                     signals);
    EXPECT_EQ(driver.State().FilesChecked, 0);
    driver.DoTheBiz();
    EXPECT_EQ(driver.State().FilesChecked, 1);
    EXPECT_EQ(driver.State().CopyErrors, 0);
    EXPECT_TRUE(signals.RunStarted && signals.RunFinished);
    EXPECT_FALSE(signals.Interrupted || signals.CopyInProgress);
}

// The box waits behind the other screen saver until the user is back.
TEST_F(RunDriverTest, ASecondarySaverInTheWindowsFolderStartsHiddenThenTheBoxThenTheEnd) {
    InstallSecondarySaver(L"C:\\Windows");
    InstallSecondarySaver(L"C:\\Windows\\System32");
    Bench.Run();
    EXPECT_EQ(LastActions(), (Lines{L"start hidden Stars.scr /S", L"box  completed ", L"end"}));
}

TEST_F(RunDriverTest, ASecondarySaverOnlyInTheSystemFolderStartsInANormalWindow) {
    InstallSecondarySaver(L"C:\\Windows\\System32");
    Bench.Run();
    EXPECT_EQ(LastActions(), (Lines{L"start normal Stars.scr /s", L"box  completed ", L"end"}));
}

TEST_F(RunDriverTest, ASecondarySaverMayLieInAnyOfTheSystemFolders) {
    Bench.Host.Systems = {L"C:\\Windows\\System32", L"C:\\Windows\\SysWOW64"};
    InstallSecondarySaver(L"C:\\Windows\\SysWOW64");
    Bench.Run();
    EXPECT_EQ(LastActions(), (Lines{L"start normal Stars.scr /s", L"box  completed ", L"end"}));
}

TEST_F(RunDriverTest, AMissingSecondarySaverIsReportedAndTheFormUnloaded) {
    UseSecondarySaver();
    Bench.Run();
    EXPECT_EQ(LastActions(), (Lines{L"box Trying to start secondary screen-saver\r\n"
                                    L"Can't find Stars",
                                    L"unload"}));
}

TEST_F(RunDriverTest, ASecondarySaverThatCannotStartIsReportedAndTheFormUnloaded) {
    InstallSecondarySaver(L"C:\\Windows");
    Bench.Host.Starts = false;
    Bench.Run();
    EXPECT_EQ(LastActions(), (Lines{L"start hidden Stars.scr /S",
                                    L"box Trying to start secondary screen-saver\r\n"
                                    L"Can't run Stars",
                                    L"unload"}));
}

TEST_F(RunDriverTest, AnUnexpectedFailureIsShownOnceWithTheStopIcon) {
    Bench.Files.WriteFile(L"C:\\Data\\b.txt", "b");
    FailingFileSystem files(Bench.Files, {.Number = ErrorNumber::FileNotFound,
                                          .Kind = FileOperation::GetFile,
                                          .Matches = [](const FileCall& call) {
                                              return call.Path.ends_with(L"b.txt");
                                          }});
    Bench.Run(files, Bench.Settings);
    const std::wstring text =
        L"Error 53 - File not found in CopyFile \r\n      <C:\\Data\\b.txt>\r\n"
        L"   to <C:\\Copy\\b.txt>";
    EXPECT_EQ(LastActions(), (Lines{L"stop box " + text, L"unload"}));
    EXPECT_TRUE(Bench.HasLog({L"Ambrio interrupted " + kNow}));
}

TEST_F(RunDriverTest, ASetWhoseSelectedIsNoBooleanEndsTheSetsButNotTheClosingSteps) {
    Bench.AddSet(L"Odd", L"C:\\Data", L"C:\\Odd");
    Bench.AddSet(L"Later", L"C:\\Data", L"C:\\Later");
    Bench.Set(L"Odd", kSelectedKey, L"perhaps");
    Bench.Run();
    const std::wstring text = L"Error 13 - Type mismatch while processing Set ";
    EXPECT_TRUE(Bench.HasLog({L"'Letters' complete", text, L"      <Odd>", kCleanSentence,
                              L"Ambrio interrupted " + kNow, kSeparatorLine}));
    EXPECT_EQ(LastActions(), (Lines{L"stop box " + text + L"\r\n      <Odd>", L"unload"}));
    EXPECT_FALSE(Bench.Files.FolderExists(L"C:\\Later"));
}

TEST_F(RunDriverTest, ALogThatCannotBeWrittenStopsTheRunAndIsShown) {
    // Neither of the places will do.
    const std::wstring log = L"C:\\Users\\me\\Local\\Ambrio\\Ambrio.log";
    Bench.Files.WriteFile(EngineBench::LogFile(), "", kAttributeReadOnly);
    Bench.Files.WriteFile(log, "", kAttributeReadOnly);
    Bench.Set(kGeneralSection, kLastRunKey, kNow);
    InstallSecondarySaver(L"C:\\Windows");
    Bench.Run();
    EXPECT_EQ(LastActions(),
              (Lines{L"stop box Error 70 - Permission denied while writing \r\n      <" + log +
                         L">\r\n\r\nAnother program may have this file open, or it may be "
                         L"read-only. Close that program or remove the file; until then nothing "
                         L"is backed up.",
                     L"unload"}));
    EXPECT_FALSE(Bench.Files.FolderExists(L"C:\\Copy"));
}

// Only the last lines of the log meet the fault.
TEST_F(RunDriverTest, AClosingBlockThatCannotBeWrittenIsNoCompletedRun) {
    InstallSecondarySaver(L"C:\\Windows");
    for (int line = 5; line <= 7; ++line) {
        Bench.Host.Actions.clear();
        FailingFileSystem failing(
            Bench.Files,
            {.At = line, .Number = ErrorNumber::DiskFull, .Kind = FileOperation::WriteLine});
        Bench.Run(failing, Bench.Settings);
        EXPECT_TRUE(failing.Fired());
        EXPECT_EQ(LastActions(), (Lines{L"stop box Error 61 - Disk full while writing \r\n"
                                        L"      <C:\\Ambrio\\Ambrio.log>"}));
    }
}

TEST_F(RunDriverTest, ASettingsStoreThatFailsStillLeavesAWholeRun) {
    for (int operation = 1;; ++operation) {
        EngineBench bench;
        bench.Files.MakeFolder(L"C:\\Data");
        bench.AddSet(L"Letters", L"C:\\Data", L"C:\\Copy");
        FailingSettingsStore settings(bench.Settings, operation, ErrorNumber::PermissionDenied);
        try {
            bench.Run(bench.Files, settings);
        } catch (const RuntimeError&) {
            ADD_FAILURE() << "came out of the run: operation " << operation;
        }
        if (!settings.HasFailed()) {
            break;
        }
        EXPECT_EQ(bench.Panel.Events.back(), L"close");
    }
}

TEST_F(RunDriverTest, TheFailureSummaryCountsEachKindInItsOrder) {
    Bench.Files.WriteFile(L"C:\\Data\\b.txt", "b");
    Bench.Files.WriteFile(L"C:\\Copy\\b.txt", "old", kAttributeReadOnly, 1);
    MakeOneCopyFail();
    Bench.AddSet(L"Missing", L"C:\\Nowhere", L"C:\\Copy");
    Bench.Run();
    EXPECT_EQ(Bench.FailureSummary,
              L"2 files failed to copy.\r\n"
              L"1 folders (and their sub-folders) were unprocessable.\r\n\r\n\r\n"
              L"See C:\\Ambrio\\Ambrio.log for details.");
    EXPECT_TRUE(Bench.HasLog(
        {L"1 folders (and their sub-folders) were unprocessable.", L"Ambrio ended " + kNow}));
}

}  // namespace
}  // namespace ambrio
