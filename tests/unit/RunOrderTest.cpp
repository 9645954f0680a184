#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "settings/SettingKeys.h"
#include "tests/support/EngineBench.h"
#include "tests/support/RunEvents.h"

namespace ambrio {
namespace {

using Events = std::vector<std::wstring>;

// A Set that goes by the archive bit, with a file to copy, one whose copy is to go, and a
// subfolder, on the second run of a day.
class RunOrder : public testing::Test {
  protected:
    RunOrder() {
        Bench.AddSet(L"S", L"C:\\Data", L"C:\\Copies");
        Bench.Set(L"S", kCopyTypeKey, kCopyTypeArchiveBit);
        Bench.Set(L"S", kClearArchiveBitKey, kYes);
        Bench.Set(L"S", kDeleteCopyArchiveBitKey, kYes);
        Bench.Set(kGeneralSection, kLastRunKey, L"11/21/2026 8:00:00 AM");
        Bench.Files.WriteFile(L"C:\\Data\\a", "new", kAttributeArchive, 13'400'000'000);
        Bench.Files.WriteFile(L"C:\\Data\\b", "seen", 0, 13'400'000'001);
        Bench.Files.WriteFile(L"C:\\Data\\Sub\\c", "deep", 0, 13'400'000'002);
        Bench.Files.WriteFile(L"C:\\Copies\\b", "seen", 0, 13'400'000'001);
    }

    [[nodiscard]] static std::wstring Separator() { return std::wstring(42, L'~'); }

    EngineBench Bench;
    RunEvents Run{Bench};
};

TEST_F(RunOrder, TheFileThatIsCopied) {
    Run.Run();
    EXPECT_EQ(Run.Between(L"lblFile=", L"lblcopied=1"),
              (Events{L"lblFile=", L"lblfsoStatus=building file list ...", L"lblfsoStatus=",
                      L"lblChecked=1", L"play", L"show", L"colour", L"events",
                      L"lblFile=a - copying", L"copy C:\\Data\\a in progress", L"events",
                      L"attributes C:\\Data\\a in progress", L"lblFile=a - done", L"lblcopied=1"}));
}

TEST_F(RunOrder, TheCopyThatIsRemoved) {
    Run.Run();
    EXPECT_EQ(
        Run.Between(L"lblcopied=1", L"hide"),
        (Events{L"lblcopied=1", L"events", L"lblFile=b - removing copy", L"remove C:\\Copies\\b",
                L"lblRemoved=1", L"lblChecked=2", L"stop", L"hide"}));
}

TEST_F(RunOrder, ARemovalThatFailsIsLoggedBeforeItsCountIsShown) {
    Bench.Files.Node(L"C:\\Copies\\b").Locked = true;
    Run.Run();
    EXPECT_EQ(Run.Between(L"remove C:\\Copies\\b", L"lblRemoved=0"),
              (Events{L"remove C:\\Copies\\b",
                      L"log Error 70 - Permission denied while removing \r\n      <C:\\Copies\\b>",
                      L"log closed", L"lblRemoved=0"}));
    EXPECT_EQ(Bench.State.CopiesRemoved, 1);
    EXPECT_EQ(Bench.State.RemoveErrors, 1);
}

TEST_F(RunOrder, FromTheLastFileToTheFirstSubfolder) {
    Run.Run();
    EXPECT_EQ(Run.Between(L"hide", L"lblSource=C:\\Data\\Sub"),
              (Events{L"hide", L"events", L"lblfsoStatus=", L"lblFile=",
                      L"lblfsoStatus=building folder list ...", L"lblfsoStatus=",
                      L"lblSource=C:\\Data\\Sub"}));
}

// The message is taken away once, not again at every subfolder.
TEST_F(RunOrder, FromOneSubfolderToTheNext) {
    Bench.Files.MakeFolder(L"C:\\Data\\Tub");
    Run.Run();
    EXPECT_EQ(
        Run.Between(L"lblSource=C:\\Data\\Sub", L"lblSource=C:\\Data\\Tub"),
        (Events{L"lblSource=C:\\Data\\Sub", L"lblDest=C:\\Copies\\Sub", L"lblFile=",
                L"lblfsoStatus=building file list ...", L"lblfsoStatus=", L"lblChecked=3",
                L"events", L"lblfsoStatus=", L"lblFile=", L"lblfsoStatus=building folder list ...",
                L"lblfsoStatus=", L"lblChecked=3", L"lblSource=C:\\Data\\Tub"}));
}

TEST_F(RunOrder, TheSetIsShownBeforeItsSettingsAreRead) {
    Run.Run();
    EXPECT_EQ(Run.Between(L"read General.Sets", L"lblSource=C:\\Data"),
              (Events{L"read General.Sets", L"lblSet=S", L"read S.Selected", L"read S.Source",
                      L"read S.Destination", L"read S.Recursive", L"read S.CopyType",
                      L"read S.OverwriteReadOnly", L"read S.ClearArchiveBit",
                      L"read S.DeleteCopyArchiveBit", L"log " + Separator(),
                      L"log Ambrio start 11/21/2026 3:49:46 PM", L"log 'S' start", L"log closed",
                      L"lblSource=C:\\Data"}));
}

TEST_F(RunOrder, TheEndOfTheList) {
    Run.Run();
    EXPECT_EQ(Run.Between(L"log 'S' complete", L"leave topmost"),
              (Events{L"log 'S' complete", L"log closed", L"lblSet=", L"lblSource=", L"lblDest=",
                      L"lblSet=<All sets processed>", L"lblFile=",
                      L"log Of 3 files checked, 1 were copied; 1 copies were removed.",
                      L"log Ambrio completed 11/21/2026 3:49:46 PM", L"log " + Separator(),
                      L"log flushed", L"log closed", L"close", L"show pointer", L"leave topmost"}));
}

TEST_F(RunOrder, TheTimeOfTheRunIsKeptOnASecondRunOfADayToo) {
    Run.Run();
    EXPECT_EQ(Run.Between(L"title=Ambrio v1.0", L"read General.Sets"),
              (Events{L"title=Ambrio v1.0", L"read General.LogOnlyErrors",
                      L"open C:\\Ambrio\\filecopy.avi", L"read General.LastRun",
                      L"save General.LastRun", L"read General.Sets"}));
    EXPECT_EQ(Bench.Settings.Values.at({kGeneralSection, kLastRunKey}), L"11/21/2026 3:49:46 PM");
}

// What the user did while a file was handled is seen before the next one.
TEST_F(RunOrder, InputAfterAFileStopsTheRunBeforeTheNext) {
    Bench.Host.OnDoEvents = [this](int) {
        Bench.Signals.Interrupted |= Bench.Panel.Caption(PanelLabel::lblcopied) == L"1";
    };
    RunEvents run(Bench);
    run.Run();
    EXPECT_EQ(Bench.State.FilesChecked, 1);
    EXPECT_TRUE(Bench.Files.FileExists(L"C:\\Copies\\b"));
}

// A log that fails in the middle leaves counts that add up: what was tried is counted as tried.
TEST_F(RunOrder, ALogThatFailsWithACopyLeavesTheCountsRight) {
    Bench.Set(L"S", kDeleteCopyArchiveBitKey, kNo);
    Bench.Files.Node(L"C:\\Data\\a").Locked = true;
    Bench.Host.OnDoEvents = [this](int) { Bench.Files.Node(EngineBench::LogFile()).Locked = true; };
    RunEvents run(Bench);
    run.Run();
    EXPECT_EQ(Bench.State.FilesCopied, 1);
    EXPECT_EQ(Bench.State.CopyErrors, 1);
}

TEST_F(RunOrder, ALogThatFailsWithARemovalLeavesTheCountsRight) {
    Bench.Files.Node(L"C:\\Copies\\b").Locked = true;
    Bench.Host.OnDoEvents = [this](int) { Bench.Files.Node(EngineBench::LogFile()).Locked = true; };
    RunEvents run(Bench);
    run.Run();
    EXPECT_EQ(Bench.State.CopiesRemoved, 1);
    EXPECT_EQ(Bench.State.RemoveErrors, 1);
}

TEST_F(RunOrder, ALogThatFailsWithAFolderLeavesItsCountRight) {
    Bench.Files.Node(L"C:\\Data\\Sub").ListingDenied = true;
    Bench.Host.OnDoEvents = [this](int) { Bench.Files.Node(EngineBench::LogFile()).Locked = true; };
    RunEvents run(Bench);
    run.Run();
    EXPECT_EQ(Bench.State.FolderErrors, 1);
}

}  // namespace
}  // namespace ambrio
