// Whole runs without failures: what they copy, show, log and record.

#include <gtest/gtest.h>

#include "ProductVersion.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/NameOf.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

class RunTest : public SaverTest {
  protected:
    RunTest() { Source.AddFile(L"one.txt", "1").AddFile(L"sub\\two.txt", "22"); }

    const Lines oneSetCopied_ =
        Block({L"'Documents' start", L"'Documents' complete",
               L"Of 2 files checked, 2 were copied; 0 copies were removed."},
              L" completed ");
    const Lines nothingNew_ = Block({L"'Documents' start", L"'Documents' complete",
                                     L"Of 2 files checked, 0 were copied; 0 copies were removed."},
                                    L" completed ");
};

TEST_F(RunTest, CopiesTheSelectedSetsAndShowsAndLogsIt) {
    SeeFilesAsOnWindows();  // a copy of a hidden file is hidden
    TestTree pictures(Folder.Below(L"Pictures"));
    pictures.AddFile(L"never.bmp", "not selected");
    TestTree music(Folder.Below(L"Music"));
    music.AddFile(L"song.wav", std::string(100'000, 's'), 50)
        .AddFile(L"hidden.ini", "h", 60, FILE_ATTRIBUTE_HIDDEN)
        .AddFile(L"a\\b\\c\\deep.txt", "deep", 70)
        .AddFolder(L"empty");
    Settings.WriteSets({{L"Documents", Source.Root(), Folder.Below(L"Backup\\Documents")},
                        {L"Pictures", pictures.Root(), Folder.Below(L"Backup\\Pictures"), L"False"},
                        {L"Music", music.Root(), Folder.Below(L"Backup\\Music")}});
    RunToTheEnd();

    const PanelProbe panel = Panel();
    EXPECT_EQ(panel.Title(), L"Ambrio v" + std::to_wstring(AMBRIO_VERSION_MAJOR) + L"." +
                                 std::to_wstring(AMBRIO_VERSION_MINOR));
    EXPECT_EQ(panel.Caption(PanelControl::lblSet), kAllSetsProcessed);
    for (const PanelControl emptied : {PanelControl::lblSource, PanelControl::lblDest,
                                       PanelControl::lblFile, PanelControl::lblfsoStatus}) {
        EXPECT_EQ(panel.Caption(emptied), L"") << static_cast<int>(emptied);
    }
    EXPECT_EQ(panel.Caption(PanelControl::lblChecked), L"5");
    EXPECT_EQ(panel.Caption(PanelControl::lblcopied), L"5");
    EXPECT_EQ(panel.Caption(PanelControl::lblRemoved), L"0");

    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Folder.Below(L"Backup\\Documents"))));
    EXPECT_TRUE(SameTree(ReadTree(music.Root()), ReadTree(Folder.Below(L"Backup\\Music"))));
    EXPECT_FALSE(FolderExists(Folder.Below(L"Backup\\Pictures")));

    EndByKey();
    EXPECT_EQ(Program().ExitCode(), 0U);
    EXPECT_EQ(
        Log().Blocks(),
        std::vector<Lines>{Block({L"'Documents' start", L"'Documents' complete",
                                  L"'Pictures' not selected", L"'Music' start", L"'Music' complete",
                                  L"Of 5 files checked, 5 were copied; 0 copies were "
                                  L"removed."},
                                 L" completed ")});
}

TEST_F(RunTest, RecordsTheTimeOfTheRunAndWritesNothingElseToTheSettings) {
    WriteOneSet();
    RunToTheEnd();
    EndByKey();
    EXPECT_TRUE(IsOfTheLastMinutes(Settings.Read(L"General", L"LastRun").value_or(L"")));
    EXPECT_EQ(Settings.Sections(), (std::vector<std::wstring>{L"Documents", L"General"}));
    EXPECT_EQ(Settings.Keys(L"General"), (std::vector<std::wstring>{L"LastRun", L"Sets"}));
}

TEST_F(RunTest, ASecondRunOnTheSameDayCopiesNothingAndAppendsItsBlock) {
    WriteOneSet();
    for (int run = 0; run < 2; ++run) {
        RunToTheEnd();
        EndByKey();
    }
    EXPECT_EQ(Log().Blocks(), (std::vector<Lines>{oneSetCopied_, nothingNew_}));
}

TEST_F(RunTest, CopiesWhatHasBecomeNewerAndKeepsACopyThatIsNewer) {
    WriteOneSet();
    RunToTheEnd();
    EndByKey();
    Source.AddFile(L"one.txt", "changed", 60).AddFile(L"sub\\two.txt", "older", 7200);
    RunToTheEnd();
    EXPECT_EQ(Panel().Caption(PanelControl::lblcopied), L"1");
    EndByKey();
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\one.txt"), "changed");
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\sub\\two.txt"), "22");
}

TEST_F(RunTest, RemovesTheCopyOfAFileThatHasBecomeReadOnly) {
    Settings.WriteSets({{.Name = L"Documents",
                         .Source = Source.Root(),
                         .Destination = Destination(),
                         .CopyType = L"ReadOnly",
                         .DeleteCopyReadOnly = L"Yes"}});
    RunToTheEnd();
    EndByKey();
    SetFileAttributesOf(Source.PathOf(L"one.txt"), FILE_ATTRIBUTE_READONLY);
    RunToTheEnd();
    EXPECT_EQ(Panel().Caption(PanelControl::lblRemoved), L"1");
    EndByKey();
    EXPECT_FALSE(FileExists(Destination() + L"\\one.txt"));
    EXPECT_TRUE(FileExists(Destination() + L"\\sub\\two.txt"));
    EXPECT_EQ(LatestBlock(), Block({L"'Documents' start", L"'Documents' complete",
                                    L"Of 2 files checked, 0 were copied; 1 copies were removed."},
                                   L" completed "));
}

TEST_F(RunTest, OverwritesAReadOnlyCopyWhenTheSetSaysSo) {
    TestTree copy(Destination());
    copy.AddFile(L"one.txt", "old", 7200, FILE_ATTRIBUTE_READONLY);
    Settings.WriteSets({{.Name = L"Documents",
                         .Source = Source.Root(),
                         .Destination = Destination(),
                         .OverwriteReadOnly = L"Yes"}});
    RunToTheEnd();
    EndByKey();
    EXPECT_EQ(LatestBlock(), oneSetCopied_);
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
}

TEST_F(RunTest, LeavesSubfoldersAloneWhenTheSetIsNotRecursive) {
    Settings.WriteSets({{.Name = L"Documents",
                         .Source = Source.Root(),
                         .Destination = Destination(),
                         .Recursive = L"yes"}});  // only "Yes" is yes
    RunToTheEnd();
    EndByKey();
    EXPECT_TRUE(FileExists(Destination() + L"\\one.txt"));
    EXPECT_FALSE(FolderExists(Destination() + L"\\sub"));
}

TEST_F(RunTest, TrimsTheNamesOfTheSetsInTheList) {
    WriteOneSet(L"A");
    Settings.Write(L"General", L"Sets", L" A , No such Set ");
    Settings.Write(L"No such Set", L"Selected", L"False");
    RunToTheEnd();
    EndByKey();
    EXPECT_EQ(LatestBlock(), Block({L"'A' start", L"'A' complete", L"'No such Set' not selected",
                                    L"Of 2 files checked, 2 were copied; 0 copies were removed."},
                                   L" completed "));
}

struct DayCase {
    const char* Name;
    const wchar_t* LastRun;  // null: there was no run; empty: a moment ago
    bool Cleared;
};

class DailyClearingTest : public RunTest, public testing::WithParamInterface<DayCase> {};

TEST_P(DailyClearingTest, ClearsTheLogOnTheFirstRunOfADay) {
    WriteFileBytes(Folder.LogFile(), "an old line\r\n");
    WriteOneSet();
    const DayCase& day = GetParam();
    if (day.LastRun != nullptr) {
        const std::wstring lastRun = day.LastRun;
        Settings.Write(L"General", L"LastRun", lastRun.empty() ? PresentTime() : lastRun);
    }
    RunToTheEnd();
    EndByKey();
    EXPECT_EQ(Log().Contains(L"an old line"), !day.Cleared);
    EXPECT_EQ(LatestBlock(), oneSetCopied_);
}

INSTANTIATE_TEST_SUITE_P(LastRun, DailyClearingTest,
                         testing::Values(DayCase{"NeverRan", nullptr, true},
                                         DayCase{"AMomentAgo", L"", false},
                                         DayCase{"YearsAgo", L"2001-02-03 04:05:06", true}),
                         NameOf());

TEST_F(RunTest, LeavesNoTraceInTheLogWhenOnlyErrorsAreLoggedAndThereAreNone) {
    WriteOneSet();
    Settings.Write(L"General", L"LogOnlyErrors", L"Yes");
    RunToTheEnd();
    EndByKey();
    EXPECT_FALSE(Log().Exists());
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
}

TEST_F(RunTest, SaysThatThereAreNoSetsAndLeavesTheLabelsAsTheyWere) {
    Start(L"/S");
    const PanelProbe panel = Panel();
    const Lines expected =
        Block({L"No Sets to process", L"Of 0 files checked, 0 were copied; 0 copies were removed."},
              L" completed ");
    EXPECT_TRUE(WaitUntil([&] { return LatestBlock().size() == expected.size(); }));
    for (const PanelControl untouched : {PanelControl::lblSet, PanelControl::lblSource,
                                         PanelControl::lblDest, PanelControl::lblFile}) {
        EXPECT_EQ(panel.Caption(untouched), L"-") << static_cast<int>(untouched);
    }
    EXPECT_EQ(panel.Caption(PanelControl::lblfsoStatus), L"Label3");
    EndByKey();
    EXPECT_EQ(LatestBlock(), expected);
}

TEST_F(RunTest, EndsByItselfNeverWhileNobodyTouchesAnything) {
    WriteOneSet();
    RunToTheEnd();
    EXPECT_TRUE(GoesOn());
    EXPECT_TRUE(Saver().IsVisible());
    EndByKey();
}

}  // namespace
}  // namespace ambrio::e2e
