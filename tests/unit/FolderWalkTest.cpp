#include "engine/FolderWalk.h"

#include <gtest/gtest.h>

#include "engine/ListingYield.h"
#include "engine/LookAhead.h"
#include "platform/TemporaryName.h"
#include "settings/SettingKeys.h"
#include "tests/support/CountingFileSystem.h"
#include "tests/support/EngineBench.h"
#include "tests/support/FailingFileSystem.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;
const std::wstring kBuildingFiles = L"lblfsoStatus=building file list ...";
const std::wstring kBuildingFolders = L"lblfsoStatus=building folder list ...";

class FolderWalkTest : public testing::Test {
  protected:
    FolderWalkTest() {
        Bench.Files.MakeFolder(L"C:\\From");
        Bench.AddSet(L"S", L"C:\\From", L"C:\\To");
    }

    void Files(const Lines& paths) {
        for (const std::wstring& path : paths) {
            Bench.Files.WriteFile(L"C:\\From\\" + path, "x");
        }
    }
    [[nodiscard]] bool IsCopied(const std::wstring& path) {
        return Bench.Files.FileExists(L"C:\\To\\" + path);
    }
    [[nodiscard]] bool IsMade(const std::wstring& path) {
        return Bench.Files.FolderExists(L"C:\\To\\" + path);
    }
    void RunWithFault(const FileFault& fault) {
        FailingFileSystem failing(Bench.Files, fault);
        Bench.Run(failing, Bench.Settings);
        EXPECT_TRUE(failing.Fired());
    }
    [[nodiscard]] static FileFault ListingFault(FileOperation kind, const std::wstring& folder,
                                                int at = 1) {
        return {.At = at, .Kind = kind, .Matches = [folder](const FileCall& call) {
                    return call.Path == folder;
                }};
    }
    // Sets Interrupted while the file is being copied.
    void InterruptDuring(const std::wstring& file) {
        Bench.Host.OnDoEvents = [this, file](int) {
            if (Bench.Panel.Caption(PanelLabel::lblFile) == file + L" - copying") {
                Bench.Signals.Interrupted = true;
            }
        };
    }

    EngineBench Bench;
};

TEST_F(FolderWalkTest, AMissingSourceLeavesOneLineAndMakesNoDestination) {
    Bench.Files.Remove(L"C:\\From");
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog({L"'S' start", L"Error <C:\\From> does not exist.", L"'S' complete"}));
    EXPECT_FALSE(Bench.Files.FolderExists(L"C:\\To"));
    EXPECT_EQ(Bench.State.FolderErrors, 1);
    EXPECT_EQ(Bench.Panel.Count(L"lblChecked=0"), 1);
}

TEST_F(FolderWalkTest, ADestinationWithThreeMissingLevelsIsMadeWithoutALine) {
    Files({L"a"});
    Bench.Set(L"S", kDestinationKey, L"C:\\To\\deep\\deeper");
    Bench.Run();
    EXPECT_TRUE(IsCopied(L"deep\\deeper\\a"));
    EXPECT_TRUE(Bench.HasLog({L"'S' start", L"'S' complete"}));
}

TEST_F(FolderWalkTest, ADestinationOnAMissingDriveIsReportedAndItsFilesAreLeft) {
    Files({L"a"});
    Bench.Set(L"S", kDestinationKey, L"Q:\\To");
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog({L"'S' start", L"Error 76 - Path not found while creating folder ",
                              L"      <Q:\\To>", L"'S' complete"}));
    EXPECT_EQ(Bench.State.FolderErrors, 1);
    EXPECT_EQ(Bench.State.FilesChecked, 0);
}

TEST_F(FolderWalkTest, AnEmptySourceShowsThatItsListIsBuiltAndHandsNothingOver) {
    Bench.Run();
    Lines shown;
    for (const std::wstring& event : Bench.Panel.Events) {
        if (event.starts_with(L"lblfsoStatus") || event.starts_with(L"lblChecked")) {
            shown.push_back(event);
        }
    }
    EXPECT_EQ(shown, (Lines{kBuildingFiles, L"lblfsoStatus=", kBuildingFolders, L"lblfsoStatus=",
                            L"lblChecked=0"}));
    EXPECT_TRUE(Bench.Files.FolderExists(L"C:\\To"));
}

// Each change of a caption is painted at once, which costs more than to look whether it is one.
TEST_F(FolderWalkTest, TheStatusIsClearedForTheFirstOfManyAndNotForEach) {
    Files({L"a", L"b", L"c", L"one\\d", L"two\\e"});
    Bench.Run();
    Lines shown;
    for (const std::wstring& event : Bench.Panel.Events) {
        if (event.starts_with(L"lblfsoStatus=")) {
            shown.push_back(event);
        }
    }
    const std::wstring cleared = L"lblfsoStatus=";
    const Lines ofASubfolder = {kBuildingFiles, cleared, cleared, kBuildingFolders, cleared};
    Lines all = {kBuildingFiles, cleared, cleared, kBuildingFolders, cleared};
    all.insert(all.end(), ofASubfolder.begin(), ofASubfolder.end());
    all.insert(all.end(), ofASubfolder.begin(), ofASubfolder.end());
    all.push_back(cleared);
    EXPECT_EQ(shown, all);
}

TEST_F(FolderWalkTest, ASetThatIsNotRecursiveIgnoresSubfolders) {
    Bench.Set(L"S", kRecursiveKey, kNo);
    Files({L"a", L"sub\\b"});
    Bench.Run();
    EXPECT_TRUE(IsCopied(L"a"));
    EXPECT_FALSE(IsMade(L"sub"));
    EXPECT_EQ(Bench.Panel.Count(kBuildingFolders), 0);
}

TEST_F(FolderWalkTest, ARecursiveSetMirrorsEverySubfolderAlsoEmptyOnes) {
    Files({L"a", L"one\\b", L"one\\two\\c"});
    Bench.Files.MakeFolder(L"C:\\From\\one\\empty");
    Bench.Files.MakeFolder(L"C:\\From\\hidden", kAttributeHidden | kAttributeSystem);
    Bench.Run();
    EXPECT_TRUE(IsCopied(L"a") && IsCopied(L"one\\b") && IsCopied(L"one\\two\\c"));
    EXPECT_TRUE(IsMade(L"one\\empty") && IsMade(L"hidden"));
    EXPECT_EQ(Bench.State.FilesChecked, 3);
}

TEST_F(FolderWalkTest, AllFilesOfAFolderComeBeforeItsFirstSubfolder) {
    Files({L"one\\b", L"one\\two\\c", L"a"});
    Bench.Run();
    Lines done;
    for (const std::wstring& event : Bench.Panel.Events) {
        if (event.ends_with(L" - done")) {
            done.push_back(event);
        }
    }
    EXPECT_EQ(done, (Lines{L"lblFile=a - done", L"lblFile=b - done", L"lblFile=c - done"}));
}

TEST_F(FolderWalkTest, StopsAfterTheThirdFileWhenInterruptedDuringIt) {
    Files({L"1", L"2", L"3", L"4", L"sub\\5"});
    InterruptDuring(L"3");
    Bench.Run();
    EXPECT_TRUE(IsCopied(L"3"));
    EXPECT_FALSE(IsCopied(L"4"));
    EXPECT_FALSE(IsMade(L"sub"));
    EXPECT_EQ(Bench.Panel.Caption(PanelLabel::lblFile), L"");  // emptied by the end of the list
}

// Wanted, odd as it looks.
TEST_F(FolderWalkTest, AnInterruptedWalkStillMakesEachRemainingFolderAndHandsOverItsFirstFile) {
    Files({L"one\\1", L"one\\2", L"two\\1", L"two\\2", L"three\\sub\\1", L"three\\sub\\2"});
    InterruptDuring(L"1");
    Bench.Run();
    EXPECT_TRUE(IsCopied(L"one\\1") && IsCopied(L"two\\1") && IsCopied(L"three\\sub\\1"));
    EXPECT_FALSE(IsCopied(L"one\\2") || IsCopied(L"two\\2") || IsCopied(L"three\\sub\\2"));
    EXPECT_EQ(Bench.State.FilesChecked, 3);
}

TEST_F(FolderWalkTest, AnInterruptedWalkListsNoMoreThanItNeeds) {
    Files({L"1", L"2", L"3", L"4"});
    Bench.Files.WriteFile(L"C:\\To\\old", "x");
    Bench.Signals.Interrupted = true;
    CountingFileSystem counting(Bench.Files);
    RunState state;
    RunLog log(counting, Bench.App, state);
    const RunContext run{counting, log, Bench.Panel, Bench.Host, state, Bench.Signals};
    FileCopier copier(run);
    FolderWalk(run, copier).CopyFiles(L"C:\\From", L"C:\\To", true, L"", false, false, false);
    EXPECT_EQ(counting.CallsOf(FileOperation::Next), 1);
}

TEST_F(FolderWalkTest, ASubfolderThatCannotBeListedIsLoggedAndTheNextOnesAreWalked) {
    Files({L"one\\1", L"two\\1"});
    Bench.Files.Node(L"C:\\From\\one").ListingDenied = true;
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog({L"Error 70 - Permission denied while accessing folder ",
                              L"      <C:\\From\\one>", L"'S' complete"}));
    EXPECT_TRUE(IsCopied(L"two\\1"));
    EXPECT_EQ(Bench.State.FolderErrors, 1);
    EXPECT_FALSE(Bench.Signals.Interrupted);
    EXPECT_EQ(Bench.Panel.Caption(PanelLabel::lblfsoStatus), L"");
}

TEST_F(FolderWalkTest, ARootThatCannotBeListedEndsOnlyItsSet) {
    Bench.Files.Node(L"C:\\From").ListingDenied = true;
    Bench.Files.WriteFile(L"C:\\Other\\1");
    Bench.AddSet(L"T", L"C:\\Other", L"C:\\To");
    Bench.Run();
    EXPECT_TRUE(IsCopied(L"1"));
    EXPECT_EQ(Bench.State.FolderErrors, 1);
}

TEST_F(FolderWalkTest, AListingThatBreaksOffStillHandsOverWhatItGave) {
    Files({L"1", L"2", L"3"});
    RunWithFault(ListingFault(FileOperation::Next, L"C:\\From", 3));
    EXPECT_TRUE(IsCopied(L"1") && IsCopied(L"2"));
    EXPECT_FALSE(IsCopied(L"3"));
    EXPECT_EQ(Bench.State.FolderErrors, 1);
    EXPECT_TRUE(Bench.HasLog(
        {L"Error 70 - Permission denied while accessing folder ", L"      <C:\\From>"}));
}

TEST_F(FolderWalkTest, ADestinationThatCannotBeListedIsAskedFileByFile) {
    for (const FileOperation kind : {FileOperation::GetFolder, FileOperation::Next}) {
        Files({L"same", L"new"});
        const FileSeconds time = Bench.Files.GetFile(L"C:\\From\\same").DateLastModified;
        Bench.Files.WriteFile(L"C:\\To\\same", "old", 0, time);
        RunWithFault(ListingFault(kind, L"C:\\To"));
        EXPECT_TRUE(IsCopied(L"new"));
        EXPECT_EQ(Bench.Files.Content(L"C:\\To\\same"), "old");
        EXPECT_FALSE(Bench.State.HasFailures());
        Bench.Files.Remove(L"C:\\To");
    }
}

TEST_F(FolderWalkTest, ACopyIsFoundWhateverItsCase) {
    Files({L"R\u00e9sum\u00e9.TXT"});
    const FileSeconds time =
        Bench.Files.GetFile(L"C:\\From\\R\u00e9sum\u00e9.TXT").DateLastModified;
    Bench.Files.WriteFile(L"C:\\To\\R\u00c9SUM\u00c9.txt", "old", 0, time);
    Bench.Run();
    EXPECT_EQ(Bench.State.FilesCopied, 0);
}

TEST_F(FolderWalkTest, AFailingQuestionAboutTheFoldersIsReportedWithItsAction) {
    Files({L"1"});
    FileFault fault = ListingFault(FileOperation::FolderExists, L"C:\\From");
    fault.QuestionsThrow = true;
    RunWithFault(fault);
    EXPECT_TRUE(Bench.HasLog(
        {L"Error 70 - Permission denied while accessing folder ", L"      <C:\\From>"}));
    EXPECT_EQ(Bench.Panel.Count(L"lblChecked=0"), 0);
}

TEST_F(FolderWalkTest, LeftoversOfKilledCopiesAreRemovedAndNothingElse) {
    Files({L"a"});
    const std::wstring leftover = TemporaryName(71, 77);
    const std::wstring locked = TemporaryName(72, 78);
    const std::wstring ofTheUser = TemporaryName(73, 79);
    Files({ofTheUser});
    for (const std::wstring& name : {leftover, locked, ofTheUser, std::wstring(L"~other.tmp")}) {
        Bench.Files.WriteFile(L"C:\\To\\" + name, "x", kAttributeReadOnly);
    }
    Bench.Files.Node(L"C:\\To\\" + locked).Locked = true;
    Bench.Run();
    EXPECT_FALSE(IsCopied(leftover));
    EXPECT_TRUE(IsCopied(locked) && IsCopied(ofTheUser) && IsCopied(L"~other.tmp"));
    EXPECT_FALSE(Bench.State.HasFailures());
}

TEST_F(FolderWalkTest, LongListingsLetEventsRun) {
    for (int i = 0; i < 3 * kEntriesBetweenYields; ++i) {
        Bench.Files.MakeFolder(L"C:\\From\\" + std::to_wstring(i));
    }
    Bench.Set(L"S", kRecursiveKey, kNo);
    Bench.Run();
    EXPECT_EQ(Bench.Host.EventCount, 3);
}

// Only what vanishes after it was listed stops a run, and little is listed ahead.
TEST_F(FolderWalkTest, AFileThatVanishesBeforeItIsListedStopsNothing) {
    // As many are read ahead while there are files to copy.
    constexpr int kListed = static_cast<int>(LookAhead::kMostEntries);
    for (int i = 1; i <= kListed; ++i) {
        Files({std::to_wstring(i)});
    }
    Files({L"late", L"last"});
    Bench.Host.OnDoEvents = [this](int) {
        if (Bench.Panel.Caption(PanelLabel::lblcopied) == L"1" &&
            Bench.Files.FileExists(L"C:\\From\\late")) {
            Bench.Files.Remove(L"C:\\From\\late");
        }
    };
    Bench.Run();
    EXPECT_TRUE(IsCopied(L"1") && IsCopied(L"last"));
    EXPECT_EQ(Bench.State.FilesChecked, kListed + 1);
    EXPECT_FALSE(Bench.Signals.Interrupted);
}

TEST_F(FolderWalkTest, TheSubfoldersAreEnteredWhenTheListingIsClosed) {
    Files({L"1", L"sub\\2"});
    Bench.Host.OnDoEvents = [this](int) {
        if (Bench.Panel.Caption(PanelLabel::lblSource) == L"C:\\From\\sub") {
            EXPECT_EQ(Bench.Files.OpenHandles(), 1);  // that of the subfolder itself
        }
    };
    Bench.Run();
    EXPECT_TRUE(IsCopied(L"sub\\2"));
}

// Another run may just be making copies in a folder that this one copies to itself.
TEST_F(FolderWalkTest, InAFolderThatIsCopiedToItselfTemporariesAreNoFiles) {
    Files({L"a", TemporaryName(74, 77)});
    Bench.Set(L"S", kDestinationKey, L"C:\\From");
    Bench.Run();
    EXPECT_EQ(Bench.State.FilesChecked, 1);
    EXPECT_TRUE(Bench.Files.FileExists(L"C:\\From\\" + TemporaryName(74, 77)));
}

TEST_F(FolderWalkTest, ALeftoverStaysWhereNobodyCanTellWhetherItsFileIsThere) {
    Files({L"a"});
    const std::wstring name = TemporaryName(75, 79);
    Bench.Files.WriteFile(L"C:\\To\\" + name);
    FileFault fault = ListingFault(FileOperation::GetFile, L"C:\\From\\" + name);
    RunWithFault(fault);
    EXPECT_TRUE(IsCopied(name));
}

TEST_F(FolderWalkTest, AVeryDeepTreeIsWalkedToItsEnd) {
    std::wstring path = L"C:\\From";
    for (int i = 0; i < 200; ++i) {
        path += L"\\d";
    }
    Bench.Files.WriteFile(path + L"\\leaf", "x");
    Bench.Run();
    EXPECT_EQ(Bench.State.FilesCopied, 1);
    EXPECT_FALSE(Bench.State.HasFailures());
}

}  // namespace
}  // namespace ambrio
