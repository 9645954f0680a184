#include "engine/FileCopier.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "settings/SettingKeys.h"
#include "tests/support/EngineBench.h"
#include "tests/support/FailingFileSystem.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;
constexpr FileSeconds kTime = 13'400'000'000;
const std::wstring kFrom = L"C:\\From\\file.txt";
const std::wstring kTo = L"C:\\To\\file.txt";

// One Set with one file. That the rules hold for every combination is CopyRuleTableTest's matter.
class FileCopierTest : public testing::Test {
  protected:
    FileCopierTest() { Bench.AddSet(L"S", L"C:\\From", L"C:\\To"); }

    void Source(FileAttributes attributes, FileSeconds time = kTime) {
        Bench.Files.WriteFile(kFrom, "new", attributes, time);
    }
    void Copy(FileAttributes attributes, FileSeconds time = kTime) {
        Bench.Files.WriteFile(kTo, "old", attributes, time);
    }
    void Type(const wchar_t* type) { Bench.Set(L"S", kCopyTypeKey, type); }
    void Yes(const wchar_t* key) { Bench.Set(L"S", key, kYes); }
    void RunWithFault(const FileFault& fault) {
        FailingFileSystem failing(Bench.Files, fault);
        Bench.Run(failing, Bench.Settings);
        EXPECT_TRUE(failing.Fired());
    }
    [[nodiscard]] FileAttributes AttributesOf(const std::wstring& path) {
        return Bench.Files.Node(path).Attributes;
    }
    [[nodiscard]] static std::function<bool(const FileCall&)> On(const std::wstring& path) {
        return [path](const FileCall& call) { return call.Path == path; };
    }
    // What the panel was told from one event to another, both included.
    [[nodiscard]] Lines Shown(const std::wstring& first, const std::wstring& last) const {
        const Lines& all = Bench.Panel.Events;
        const auto from = std::find(all.begin(), all.end(), first);
        const auto to = std::find(from, all.end(), last);
        EXPECT_NE(to, all.end());
        return to == all.end() ? Lines() : Lines(from, to + 1);
    }

    EngineBench Bench;
};

TEST_F(FileCopierTest, ArchiveBitSetWithoutACopyIsCopiedAndTheBitClearedAlone) {
    Type(kCopyTypeArchiveBit);
    Yes(kClearArchiveBitKey);
    Source(kAttributeArchive | kAttributeHidden | kAttributeSystem);
    Bench.Run();
    EXPECT_EQ(Bench.Files.Content(kTo), "new");
    EXPECT_EQ(AttributesOf(kFrom), kAttributeHidden | kAttributeSystem);
}

TEST_F(FileCopierTest, ArchiveBitSetWithACopyOfTheSameTimeIsCountedAndTheCopyMadeWritable) {
    Type(kCopyTypeArchiveBit);
    Yes(kOverwriteReadOnlyKey);
    Source(kAttributeArchive);
    Copy(kAttributeReadOnly | kAttributeHidden);
    Bench.Run();
    EXPECT_EQ(Bench.State.FilesChecked, 1);
    EXPECT_EQ(Bench.State.FilesCopied, 0);
    EXPECT_EQ(Bench.Files.Content(kTo), "old");
    EXPECT_EQ(AttributesOf(kTo), kAttributeHidden);
}

TEST_F(FileCopierTest, ArchiveBitClearWithDeletionRemovesEvenAReadOnlyCopy) {
    Type(kCopyTypeArchiveBit);
    Yes(kDeleteCopyArchiveBitKey);
    Source(0);
    Copy(kAttributeReadOnly);
    Bench.Run();
    EXPECT_FALSE(Bench.Files.FileExists(kTo));
    EXPECT_EQ(Shown(L"lblFile=file.txt - removing copy", L"lblChecked=1"),
              (Lines{L"lblFile=file.txt - removing copy", L"lblRemoved=1", L"lblChecked=1"}));
}

TEST_F(FileCopierTest, ReadOnlySourceWithoutDeletionIsOnlyCounted) {
    Type(kCopyTypeReadOnly);
    Yes(kOverwriteReadOnlyKey);
    Source(kAttributeReadOnly);
    Copy(kAttributeReadOnly, 1);
    Bench.Run();
    EXPECT_EQ(Bench.State.FilesChecked, 1);
    EXPECT_EQ(Bench.State.FilesCopied, 0);
    EXPECT_EQ(AttributesOf(kTo), kAttributeReadOnly);
}

TEST_F(FileCopierTest, DateTimeCopiesASourceThatIsOneSecondNewer) {
    Source(0, kTime + 1);
    Copy(0);
    Bench.Run();
    EXPECT_EQ(Bench.Files.Content(kTo), "new");
}

TEST_F(FileCopierTest, DateTimeLeavesACopyThatIsNewerThanItsSource) {
    Source(0, kTime - 1);
    Copy(0);
    const Lines before = Bench.Files.Snapshot(L"C:\\To");
    Bench.Run();
    EXPECT_EQ(Bench.Files.Snapshot(L"C:\\To"), before);
}

TEST_F(FileCopierTest, AnEmptyOrUnknownCopyTypeBehavesAsDateTime) {
    for (const wchar_t* type : {L"", L"archivebit", L"Date"}) {
        Type(type);
        Source(kAttributeReadOnly, kTime + 1);
        Copy(0);
        Bench.Run();
        EXPECT_EQ(Bench.Files.Content(kTo), "new");
    }
}

TEST_F(FileCopierTest, AReadOnlyCopyThatMayNotBeOverwrittenFailsAndTheRunGoesOn) {
    Bench.Files.WriteFile(L"C:\\From\\next.txt", "next");
    Source(0, kTime + 1);
    Copy(kAttributeReadOnly);
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog({L"Error 70 - Permission denied while copying ",
                              L"      <C:\\From\\file.txt>", L"   to <C:\\To\\file.txt>"}));
    EXPECT_EQ(Bench.State.CopyErrors, 1);
    EXPECT_EQ(Bench.Panel.Count(L"lblFile=file.txt - done"), 1);
    EXPECT_EQ(Bench.Panel.Caption(PanelLabel::lblcopied), L"1");
    EXPECT_TRUE(Bench.Files.FileExists(L"C:\\To\\next.txt"));
    EXPECT_FALSE(Bench.Signals.CopyInProgress);
}

// Wanted, though the file is not backed up then.
TEST_F(FileCopierTest, TheArchiveBitIsClearedAfterAFailedCopyToo) {
    Type(kCopyTypeArchiveBit);
    Yes(kClearArchiveBitKey);
    Source(kAttributeArchive, kTime + 1);
    Copy(kAttributeReadOnly);
    Bench.Run();
    EXPECT_EQ(Bench.State.CopyErrors, 1);
    EXPECT_EQ(AttributesOf(kFrom), 0U);
}

TEST_F(FileCopierTest, ClearingTheArchiveBitKeepsEveryOtherOne) {
    // Hidden, not indexed, not looked over, kept on the disk or in the cloud.
    constexpr FileAttributes kOthers = 0x1A2002;
    Type(kCopyTypeArchiveBit);
    Yes(kClearArchiveBitKey);
    Source(kAttributeArchive | kOthers, kTime + 1);
    Bench.Run();
    EXPECT_EQ(AttributesOf(kFrom), kOthers);
}

TEST_F(FileCopierTest, ASourceThatVanishesAfterTheListingStopsTheRun) {
    Source(0);
    Bench.Files.WriteFile(L"C:\\From\\next.txt", "next");
    RunWithFault({.Number = ErrorNumber::FileNotFound,
                  .Kind = FileOperation::GetFile,
                  .Matches = On(kFrom)});
    const Lines entry{L"Error 53 - File not found in CopyFile ", L"      <C:\\From\\file.txt>",
                      L"   to <C:\\To\\file.txt>"};
    EXPECT_TRUE(Bench.HasLog(entry));
    EXPECT_EQ(Bench.State.FatalErrorText, entry[0] + L"\r\n" + entry[1] + L"\r\n" + entry[2]);
    EXPECT_TRUE(Bench.Signals.Interrupted);
    EXPECT_EQ(Bench.State.FilesChecked, 0);
    EXPECT_FALSE(Bench.Files.FileExists(L"C:\\To\\next.txt"));
}

TEST_F(FileCopierTest, AReadOnlyBitThatCannotBeClearedStopsTheRun) {
    Yes(kOverwriteReadOnlyKey);
    Source(0, kTime + 1);
    Copy(kAttributeReadOnly);
    RunWithFault({.Kind = FileOperation::SetAttributes});
    EXPECT_TRUE(
        Bench.State.FatalErrorText.starts_with(L"Error 70 - Permission denied in CopyFile \r\n"));
    EXPECT_EQ(Bench.State.FilesCopied, 0);
}

TEST_F(FileCopierTest, AFailedRemovalIsLoggedAndCountedAndTheRunGoesOn) {
    Type(kCopyTypeArchiveBit);
    Yes(kDeleteCopyArchiveBitKey);
    Source(0);
    Copy(0);
    Bench.Files.Node(kTo).Locked = true;
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog(
        {L"Error 70 - Permission denied while removing ", L"      <C:\\To\\file.txt>",
         L"'S' complete",
         L"Of 1 files checked, 0 were copied; 0 copies were removed and 1 could not be removed."}));
    EXPECT_EQ(Bench.Panel.Caption(PanelLabel::lblRemoved), L"0");
    EXPECT_FALSE(Bench.Signals.Interrupted);
}

TEST_F(FileCopierTest, AnArchiveBitThatCannotBeClearedIsLoggedButNotCounted) {
    Type(kCopyTypeArchiveBit);
    Yes(kClearArchiveBitKey);
    Source(kAttributeArchive);
    RunWithFault({.Kind = FileOperation::SetAttributes});
    EXPECT_TRUE(Bench.HasLog({L"Error 70 - Permission denied while clearing archive bit on ",
                              L"      <C:\\From\\file.txt>"}));
    EXPECT_FALSE(Bench.State.HasFailures());
    EXPECT_EQ(Bench.State.FilesCopied, 1);
}

// Nothing below takes care of that read any more.
TEST_F(FileCopierTest, AFailureAfterARemovalBelongsToTheFolder) {
    Type(kCopyTypeArchiveBit);
    Yes(kDeleteCopyArchiveBitKey);
    Source(0);
    Copy(0);
    RunWithFault({.At = 2,
                  .Number = ErrorNumber::FileNotFound,
                  .Kind = FileOperation::GetFile,
                  .Matches = On(kFrom)});
    EXPECT_TRUE(
        Bench.HasLog({L"Error 53 - File not found while accessing folder ", L"      <C:\\From>"}));
    EXPECT_EQ(Bench.State.FolderErrors, 1);
    EXPECT_EQ(Bench.State.CopiesRemoved, 1);
    EXPECT_FALSE(Bench.Signals.Interrupted);
}

// The bit was set again while the removal took its time.
TEST_F(FileCopierTest, AFileThatQualifiesAgainAfterTheRemovalIsCopied) {
    class BitIsSetByRemoval : public ForwardingFileSystem {
      public:
        using ForwardingFileSystem::ForwardingFileSystem;
        void DeleteFile(const std::wstring& path, bool force) override {
            ForwardingFileSystem::DeleteFile(path, force);
            SetAttributes(kFrom, kAttributeArchive);
        }
    };
    Type(kCopyTypeArchiveBit);
    Yes(kDeleteCopyArchiveBitKey);
    Source(0);
    Copy(0);
    BitIsSetByRemoval files(Bench.Files);
    Bench.Run(files, Bench.Settings);
    EXPECT_EQ(Bench.Files.Content(kTo), "new");
    EXPECT_EQ(Bench.State.CopiesRemoved, 1);
}

TEST_F(FileCopierTest, ADestinationThatIsTheSourceNeverLosesTheOnlyFile) {
    Type(kCopyTypeArchiveBit);
    Yes(kDeleteCopyArchiveBitKey);
    Source(0);
    for (const wchar_t* same : {L"C:\\From", L"c:\\FROM\\", L"C:\\Link"}) {
        Bench.Set(L"S", kDestinationKey, same);
        if (!Bench.Files.FolderExists(L"C:\\Link")) {
            Bench.Files.MakeLink(L"C:\\Link", L"C:\\From", MemoryFileSystem::LinkKind::ToFolder);
        }
        Bench.Run();
        EXPECT_TRUE(Bench.Files.FileExists(kFrom));
        EXPECT_EQ(Bench.State.CopiesRemoved, 0);
    }
}

TEST_F(FileCopierTest, TheDisplayFollowsACopyFromStartToEnd) {
    Source(0);
    Bench.Run();
    EXPECT_EQ(Shown(L"lblChecked=1", L"lblcopied=1"),
              (Lines{L"lblChecked=1", L"play", L"show", L"colour", L"lblFile=file.txt - copying",
                     L"lblFile=file.txt - done", L"lblcopied=1"}));
}

TEST_F(FileCopierTest, TheClipPlaysOnFromCopyToCopyAndStopsAtAFileThatIsNotCopied) {
    for (const wchar_t* name : {L"C:\\From\\a", L"C:\\From\\b", L"C:\\From\\c", L"C:\\To\\c"}) {
        Bench.Files.WriteFile(name, "", 0, kTime);
    }
    Bench.Run();
    EXPECT_EQ(Bench.Panel.Count(L"play"), 1);
    EXPECT_EQ(Bench.Panel.Count(L"colour"), 2);
    EXPECT_EQ(Shown(L"lblChecked=3", L"hide"), (Lines{L"lblChecked=3", L"stop", L"hide"}));
}

TEST_F(FileCopierTest, ARunThatCopiesNothingNeverShowsTheCopyFrame) {
    Source(0);
    Copy(0);
    Bench.Run();
    EXPECT_EQ(Bench.Panel.Count(L"show"), 0);
    EXPECT_EQ(Bench.Panel.Count(L"play"), 0);
}

TEST_F(FileCopierTest, EventsRunDuringACopyWhichIsInProgressThen) {
    Source(0);
    bool sawCopyInProgress = false;
    Bench.Host.OnDoEvents = [&](int) {
        sawCopyInProgress = sawCopyInProgress || Bench.Signals.CopyInProgress;
    };
    Bench.Run();
    EXPECT_TRUE(sawCopyInProgress);
    EXPECT_FALSE(Bench.Signals.CopyInProgress);
}

// A copy that is overlooked is copied over, one that cannot be read stops the run.
TEST_F(FileCopierTest, ACopyThatCannotBeReadStopsTheRun) {
    Source(0, kTime + 1);
    Copy(0);
    RunWithFault({.Number = ErrorNumber::DiskNotReady, .Kind = FileOperation::FindFile});
    EXPECT_TRUE(Bench.HasLog({L"Error 71 - Disk not ready in CopyFile ",
                              L"      <C:\\From\\file.txt>", L"   to <C:\\To\\file.txt>"}));
    EXPECT_TRUE(Bench.Signals.Interrupted);
    EXPECT_EQ(Bench.Files.Content(kTo), "old");
}

// Every file says so, and the next Set is run.
TEST_F(FileCopierTest, ADestinationThatIsGoneFailsEachCopyButNotTheRun) {
    Bench.Files.SetVolume(L"D:", true);
    Bench.Set(L"S", kDestinationKey, L"D:\\To");
    Bench.Files.WriteFile(L"D:\\To\\file.txt", "old", 0, kTime);
    Bench.Files.WriteFile(L"C:\\From\\after.txt", "new");
    Source(0, kTime + 1);
    Bench.AddSet(L"T", L"C:\\From", L"C:\\To");
    Bench.Files.BeforeRename = [&] {
        Bench.Files.SetVolume(L"D:", true, false);
        Bench.Files.BeforeRename = {};
    };
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog({L"Error 71 - Disk not ready while copying ",
                              L"      <C:\\From\\file.txt>", L"   to <D:\\To\\file.txt>"}));
    EXPECT_EQ(Bench.State.CopyErrors, 2);
    EXPECT_FALSE(Bench.Signals.Interrupted);
    EXPECT_EQ(Bench.Files.Content(kTo), "new");
}

// What came since the listing is not overwritten.
TEST_F(FileCopierTest, ANewerCopyThatAppearsAfterTheListingIsLeft) {
    Bench.Files.WriteFile(L"C:\\From\\first.txt", "x");
    Source(0);
    Bench.Files.MakeFolder(L"C:\\To");
    Bench.Host.OnDoEvents = [&](int count) {
        if (count == 1) {
            Copy(0, kTime + 1);
        }
    };
    Bench.Run();
    EXPECT_EQ(Bench.Files.Content(kTo), "old");
}

// Only after a file that was looked at and left alone may events wait for their turn.
TEST_F(FileCopierTest, EventsRunAtOnceAfterEveryCopyAndRemovalAlsoAFailedOne) {
    Type(kCopyTypeReadOnly);
    Yes(kDeleteCopyReadOnlyKey);
    const auto file = [this](const wchar_t* name, FileAttributes attributes, bool hasCopy) {
        Bench.Files.WriteFile(std::wstring(L"C:\\From\\") + name, "x", attributes, kTime);
        if (hasCopy) {
            Bench.Files.WriteFile(std::wstring(L"C:\\To\\") + name, "x", 0, kTime);
        }
    };
    file(L"unchanged", 0, true);
    file(L"unchanged too", 0, true);
    file(L"left out", kAttributeReadOnly, false);
    file(L"new", 0, false);
    file(L"new, but fails", 0, false);
    file(L"to be removed", kAttributeReadOnly, true);
    FailingFileSystem failing(
        Bench.Files, {.Kind = FileOperation::CopyFile, .Matches = On(L"C:\\From\\new, but fails")});
    Bench.Run(failing, Bench.Settings);
    EXPECT_EQ(Bench.State.FilesChecked, 6);
    EXPECT_EQ(Bench.State.CopyErrors, 1);
    EXPECT_EQ(Bench.State.CopiesRemoved, 1);
    EXPECT_EQ(Bench.Host.SoonCount, 3);
    // One more before each copy, and one while it is made, which the failed one is not.
    EXPECT_EQ(Bench.Host.EventCount, 6 + 2 + 1);
}

TEST_F(FileCopierTest, EventsRunAtOnceAfterAFileThatStopsTheRun) {
    Source(0);
    RunWithFault({.Kind = FileOperation::GetFile, .Matches = On(kFrom)});
    EXPECT_EQ(Bench.Host.EventCount, 1);
    EXPECT_EQ(Bench.Host.SoonCount, 0);
}

}  // namespace
}  // namespace ambrio
