// Settings that nobody would write: nothing crashes and no file is lost.

#include <gtest/gtest.h>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/SaverTest.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

class BadSettingsTest : public SaverTest {
  protected:
    BadSettingsTest() {
        Source.AddFile(L"file.txt", "file");
        WriteOneSet();
    }

    // The key of a section, for values that are no texts.
    [[nodiscard]] static std::wstring KeyOf(const std::wstring& section) {
        return L"Software\\VB and VBA Program Settings\\Ambrio\\" + section;
    }

    // Ends the saver after a run in which one Set had no source that exists.
    void ExpectOneFolderUnprocessable(const std::wstring& set, const std::wstring& source) {
        EndByKeyAndBox();
        EXPECT_EQ(LatestBlock(),
                  Block({L"'" + set + L"' start", L"Error <" + source + L"> does not exist.",
                         L"'" + set + L"' complete",
                         L"Of 0 files checked, 0 were copied; 0 copies were removed.",
                         L"1 folders (and their sub-folders) were unprocessable."},
                        L" ended "));
    }

    void ExpectCopied() {
        EndByKey();
        EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
    }
};

TEST_F(BadSettingsTest, ASetWithoutASectionRunsWithEmptyFolders) {
    Settings.Write(L"General", L"Sets", L"Nobody knows");
    RunToTheEnd();
    ExpectOneFolderUnprocessable(L"Nobody knows", L"");
}

TEST_F(BadSettingsTest, ASetWithAnEmptyNameRunsWithEmptyFolders) {
    Settings.Write(L"General", L"Sets", L" ,Documents");
    Settings.Write(L"Documents", L"Selected", L"False");
    RunToTheEnd();
    EndByKeyAndBox();
    EXPECT_TRUE(Log().Contains(L"'' start"));
    EXPECT_TRUE(Log().Contains(L"'Documents' not selected"));
}

TEST_F(BadSettingsTest, AValueThatIsNoTextCountsAsMissing) {
    WriteNumber(KeyOf(L"General"), L"LogOnlyErrors", 1);
    WriteNumber(KeyOf(L"General"), L"LastRun", 12345);
    WriteNumber(KeyOf(L"Documents"), L"Selected", 0);
    WriteNumber(KeyOf(L"Documents"), L"CopyType", 7);
    RunToTheEnd();
    ExpectCopied();
    EXPECT_TRUE(Log().Exists());
}

TEST_F(BadSettingsTest, AValueOfThousandsOfCharactersIsTakenAsItIs) {
    const std::wstring source = L"C:\\" + std::wstring(5000, L's');
    Settings.Write(L"Documents", L"Source", source);
    RunToTheEnd();
    EndByKeyAndBox();
    EXPECT_TRUE(Log().Contains(L"Error <" + source + L"> does not exist."));
}

TEST_F(BadSettingsTest, ALastRunThatIsNoDateCountsAsNever) {
    WriteFileBytes(Folder.LogFile(), "an old line\r\n");
    Settings.Write(L"General", L"LastRun", L"the day before yesterday");
    RunToTheEnd();
    ExpectCopied();
    EXPECT_FALSE(Log().Contains(L"an old line"));
}

TEST_F(BadSettingsTest, AnUnknownCopyTypeGoesByDateAndTime) {
    Settings.Write(L"Documents", L"CopyType", L"readonly");
    Settings.Write(L"Documents", L"DeleteCopyReadOnly", L"Yes");
    SetFileAttributesOf(Source.PathOf(L"file.txt"), FILE_ATTRIBUTE_READONLY);
    RunToTheEnd();
    ExpectCopied();
}

TEST_F(BadSettingsTest, ASelectionThatIsNoBooleanStopsTheRunWithAMessage) {
    Settings.Write(L"Documents", L"Selected", L"perhaps");
    Start(L"/S");
    const MessageBoxProbe box = WaitForBox();
    EXPECT_EQ(box.Title(), L"Ambrio");
    EXPECT_EQ(box.Icon(), BoxIcon::CriticalStop);
    EXPECT_NE(box.Text().find(L"Type mismatch"), std::wstring::npos) << Utf8(box.Text());
    EXPECT_TRUE(box.Press());
    EXPECT_TRUE(Ends());
    const Lines block = LatestBlock();
    ASSERT_GE(block.size(), 2U);
    EXPECT_EQ(block[block.size() - 2], std::wstring(L"Ambrio interrupted ") + kNow);
    EXPECT_FALSE(FolderExists(Destination()));
}

TEST_F(BadSettingsTest, ASourceThatContainsItsDestinationIsCopiedOnce) {
    Settings.Write(L"Documents", L"Destination", Source.PathOf(L"Backup"));
    RunToTheEnd();
    EndByKey();
    EXPECT_EQ(ReadTree(Source.Root()).size(), 3U);
    EXPECT_EQ(ReadFileBytes(Source.PathOf(L"Backup\\file.txt")), "file");
}

}  // namespace
}  // namespace ambrio::e2e
