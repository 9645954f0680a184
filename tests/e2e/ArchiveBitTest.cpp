// Sets that go by the archive bit: what they copy, what they remove and what they do to the bit.

#include <gtest/gtest.h>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/RuleTest.h"

namespace ambrio::e2e {
namespace {

// The source has a file with its archive bit set and, below a folder, one with it cleared.
class ArchiveBitTest : public RuleTest {
  protected:
    ArchiveBitTest() {
        Source.AddFile(L"set.txt", "set");
        Source.AddFile(L"sub\\cleared.txt", "cleared");
        ClearArchiveBit(L"sub\\cleared.txt");
    }

    void WriteArchiveSet(const wchar_t* clears, const wchar_t* deletes) {
        WriteRules({.CopyType = L"ArchiveBit",
                    .ClearArchiveBit = clears,
                    .DeleteCopyArchiveBit = deletes});
    }
};

TEST_F(ArchiveBitTest, CopiesTheFilesWhoseBitIsSetAndLeavesTheBits) {
    WriteArchiveSet(L"No", L"No");
    RunAndExpect({.Checked = 2, .Copied = 1});
    EXPECT_EQ(ReadFileBytes(CopyOf(L"set.txt")), "set");
    EXPECT_FALSE(FileExists(CopyOf(L"sub\\cleared.txt")));
    EXPECT_TRUE(HasArchiveBit(L"set.txt"));
    EXPECT_FALSE(HasArchiveBit(L"sub\\cleared.txt"));
    RunAndExpect({.Checked = 2});  // the copy is as new as the file
}

TEST_F(ArchiveBitTest, ClearsTheBitAfterTheCopyAndNothingElse) {
    WriteArchiveSet(L"Yes", L"No");
    const DWORD mixtures[] = {kHidden, kReadOnly, kSystem, kReadOnly | kHidden | kSystem};
    for (const DWORD others : mixtures) {
        // Of a size at which the program leaves the copy to another thread.
        Source.AddFile(std::to_wstring(others), std::string(2U << 20U, 'f'), 3600,
                       others | kArchive);
    }
    RunAndExpect({.Checked = 6, .Copied = 5});
    for (const DWORD others : mixtures) {
        const std::wstring name = std::to_wstring(others);
        EXPECT_EQ(FileAttributesOf(Source.PathOf(name)), others);
        EXPECT_EQ(FileAttributesOf(CopyOf(name)), others | kArchive);
    }
    EXPECT_EQ(FileAttributesOf(Source.PathOf(L"set.txt")), 0U);
    EXPECT_EQ(FileAttributesOf(CopyOf(L"set.txt")), kArchive);
    RunAndExpect({.Checked = 6});
}

TEST_F(ArchiveBitTest, CopiesAFileAgainOnceItIsWrittenTo) {
    WriteArchiveSet(L"Yes", L"No");
    RunAndExpect({.Checked = 2, .Copied = 1});
    EXPECT_FALSE(HasArchiveBit(L"set.txt"));
    Source.AddFile(L"set.txt", "changed", 60).AddFile(L"sub\\cleared.txt", "changed too", 60);
    RunAndExpect({.Checked = 2, .Copied = 2});
    EXPECT_EQ(ReadFileBytes(CopyOf(L"set.txt")), "changed");
    EXPECT_EQ(ReadFileBytes(CopyOf(L"sub\\cleared.txt")), "changed too");
    EXPECT_FALSE(HasArchiveBit(L"set.txt"));
    EXPECT_FALSE(HasArchiveBit(L"sub\\cleared.txt"));
    RunAndExpect({.Checked = 2});
}

TEST_F(ArchiveBitTest, AFileThatIsNotNewerThanItsCopyIsNotCopiedAndKeepsItsBit) {
    TestTree(Destination()).AddFile(L"set.txt", "copy", 60);
    WriteArchiveSet(L"Yes", L"No");
    RunAndExpect({.Checked = 2});
    EXPECT_EQ(ReadFileBytes(CopyOf(L"set.txt")), "copy");
    EXPECT_TRUE(HasArchiveBit(L"set.txt"));
}

TEST_F(ArchiveBitTest, ClearsTheBitAfterAFailedCopyToo) {
    TestTree(Destination()).AddFile(L"set.txt", "old", 7200, kReadOnly);
    WriteArchiveSet(L"Yes", L"No");
    RunAndExpectCopyFailure(
        L"set.txt",
        L"Of 2 files checked, 0 were copied and 1 failed to copy; 0 copies were removed.");
    EXPECT_FALSE(HasArchiveBit(L"set.txt"));
    EXPECT_EQ(ReadFileBytes(CopyOf(L"set.txt")), "old");
    RunAndExpect({.Checked = 2});
}

TEST_F(ArchiveBitTest, RemovesTheCopiesOfFilesWhoseBitIsCleared) {
    TestTree copies(Destination());
    copies.AddFile(L"set.txt", "set").AddFile(L"sub\\cleared.txt", "copy", 60, kReadOnly | kHidden);
    WriteArchiveSet(L"No", L"No");
    RunAndExpect({.Checked = 2});
    EXPECT_TRUE(FileExists(CopyOf(L"sub\\cleared.txt")));
    WriteArchiveSet(L"No", L"Yes");
    RunAndExpect({.Checked = 2, .Removed = 1});
    EXPECT_FALSE(FileExists(CopyOf(L"sub\\cleared.txt")));
    EXPECT_TRUE(FileExists(CopyOf(L"set.txt")));
    EXPECT_EQ(ReadFileBytes(Source.PathOf(L"sub\\cleared.txt")), "cleared");
    RunAndExpect({.Checked = 2});
}

// Wanted: a Set that does both undoes in each run what it did in the one before, as its user asked.
TEST_F(ArchiveBitTest, ClearingAndRemovingTogetherKeepACopyUntilTheNextRun) {
    WriteArchiveSet(L"Yes", L"Yes");
    RunAndExpect({.Checked = 2, .Copied = 1});
    EXPECT_TRUE(FileExists(CopyOf(L"set.txt")));
    RunAndExpect({.Checked = 2, .Removed = 1});
    EXPECT_FALSE(FileExists(CopyOf(L"set.txt")));
    RunAndExpect({.Checked = 2});
    Source.AddFile(L"set.txt", "changed", 60);
    RunAndExpect({.Checked = 2, .Copied = 1});
}

TEST_F(ArchiveBitTest, TheOtherTypesNeitherAskForTheBitNorClearIt) {
    for (const wchar_t* type : {L"Date/Time", L"ReadOnly", L"archivebit"}) {
        WriteRules({.CopyType = type, .ClearArchiveBit = L"Yes", .DeleteCopyArchiveBit = L"Yes"});
        RunAndExpect({.Checked = 2, .Copied = 2});
        EXPECT_TRUE(HasArchiveBit(L"set.txt"));
        EXPECT_FALSE(HasArchiveBit(L"sub\\cleared.txt"));
        RemoveTree(Destination());
    }
}

}  // namespace
}  // namespace ambrio::e2e
