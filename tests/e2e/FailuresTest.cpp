// Runs that meet failures: what is logged, counted and told, and that nothing is lost.

#include <gtest/gtest.h>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

class FailuresTest : public SaverTest {
  protected:
    FailuresTest() {
        Source.AddFile(L"bad.txt", "bad").AddFile(L"good.txt", "good");
        WriteOneSet();
    }

    // The lines of the log for a file that could not be copied.
    [[nodiscard]] Lines CopyFailure(const std::wstring& name) const {
        return {L"Error 70 - Permission denied while copying ",
                L"      <" + Source.PathOf(name) + L">",
                L"   to <" + Destination() + L"\\" + name + L">"};
    }

    // Ends the saver after the run; it must tell `counts`, one line each, in its summary.
    void EndAndExpectSummary(const Lines& counts) {
        PressKey(VK_SPACE);
        const MessageBoxProbe box = WaitForBox();
        EXPECT_EQ(box.Title(), L"Ambrio execution errors");
        std::wstring text;
        for (const std::wstring& line : counts) {
            text += line + L"\r\n";
        }
        EXPECT_EQ(box.Text(), text + L"\r\n\r\nSee " + Folder.LogFile() + L" for details.");
        EXPECT_EQ(box.Icon(), BoxIcon::Exclamation);
        EXPECT_EQ(box.ButtonTexts().size(), 1U);
        EXPECT_TRUE(Program().IsRunning());
        EXPECT_TRUE(box.Press());
        EXPECT_TRUE(Ends());
    }

    // The block of a run over the one Set.
    [[nodiscard]] Lines SetBlock(const Lines& failure, const Lines& summary) const {
        Lines inner{L"'Documents' start"};
        inner.insert(inner.end(), failure.begin(), failure.end());
        inner.push_back(L"'Documents' complete");
        inner.insert(inner.end(), summary.begin(), summary.end());
        return Block(inner, L" ended ");
    }

    [[nodiscard]] std::wstring ErrorsReported() const {
        return std::wstring(kAllSetsProcessed) + L"<ERRORS reported>\r\nsee " + Folder.LogFile();
    }
};

TEST_F(FailuresTest, ALockedFileIsLoggedAndCountedAndTheOthersAreCopied) {
    {
        const UniqueHandle lock =
            OpenFile(Source.PathOf(L"bad.txt"), GENERIC_READ, 0, OPEN_EXISTING);
        RunToTheEnd();
    }
    const PanelProbe panel = Panel();
    EXPECT_EQ(panel.Caption(PanelControl::lblSet), ErrorsReported());
    EXPECT_EQ(panel.Caption(PanelControl::lblChecked), L"2");
    EXPECT_EQ(panel.Caption(PanelControl::lblcopied), L"1");
    EndAndExpectSummary({L"1 files failed to copy."});
    EXPECT_EQ(LatestBlock(),
              SetBlock(CopyFailure(L"bad.txt"),
                       {L"Of 2 files checked, 1 were copied and 1 failed to copy; 0 copies were "
                        L"removed."}));
    EXPECT_FALSE(FileExists(Destination() + L"\\bad.txt"));
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\good.txt"), "good");
}

TEST_F(FailuresTest, AReadOnlyCopyIsRefusedAndStaysAsItWas) {
    TestTree copies(Destination());
    copies.AddFile(L"bad.txt", "old", 7200, FILE_ATTRIBUTE_READONLY);
    RunToTheEnd();
    EndAndExpectSummary({L"1 files failed to copy."});
    EXPECT_EQ(LatestBlock(),
              SetBlock(CopyFailure(L"bad.txt"),
                       {L"Of 2 files checked, 1 were copied and 1 failed to copy; 0 copies were "
                        L"removed."}));
    EXPECT_EQ(ReadFileBytes(Destination() + L"\\bad.txt"), "old");
    EXPECT_EQ(ReadTree(Destination()).size(), 2U) << "something else was left there";
}

TEST_F(FailuresTest, AMissingSourceIsOneLineAndMakesNoDestination) {
    Settings.Write(L"Documents", L"Source", Source.PathOf(L"missing"));
    RunToTheEnd();
    EXPECT_EQ(Panel().Caption(PanelControl::lblSet), ErrorsReported());
    EndAndExpectSummary({L"1 folders (and their sub-folders) were unprocessable."});
    EXPECT_EQ(LatestBlock(),
              SetBlock({L"Error <" + Source.PathOf(L"missing") + L"> does not exist."},
                       {L"Of 0 files checked, 0 were copied; 0 copies were removed.",
                        L"1 folders (and their sub-folders) were unprocessable."}));
    EXPECT_FALSE(FolderExists(Destination()));
}

TEST_F(FailuresTest, ADestinationOnADriveThatDoesNotExistLeavesTheFilesAlone) {
    const DWORD drives = GetLogicalDrives();
    wchar_t letter = L'Q';
    while ((drives >> (letter - L'A') & 1U) != 0) {
        ++letter;
    }
    const std::wstring nowhere = std::wstring(1, letter) + L":\\no\\where";
    Settings.Write(L"Documents", L"Destination", nowhere);
    RunToTheEnd();
    EXPECT_EQ(Panel().Caption(PanelControl::lblChecked), L"0");
    EndAndExpectSummary({L"1 folders (and their sub-folders) were unprocessable."});
    EXPECT_EQ(LatestBlock(), SetBlock({L"Error 76 - Path not found while creating folder ",
                                       L"      <" + nowhere + L">"},
                                      {L"Of 0 files checked, 0 were copied; 0 copies were removed.",
                                       L"1 folders (and their sub-folders) were unprocessable."}));
}

TEST_F(FailuresTest, ACopyThatCannotBeRemovedIsCountedAndStays) {
    TestTree copies(Destination());
    copies.AddFile(L"bad.txt", "bad");
    SetFileAttributesOf(Source.PathOf(L"bad.txt"), FILE_ATTRIBUTE_READONLY);
    Settings.Write(L"Documents", L"CopyType", L"ReadOnly");
    Settings.Write(L"Documents", L"DeleteCopyReadOnly", L"Yes");
    {
        const UniqueHandle lock =
            OpenFile(Destination() + L"\\bad.txt", GENERIC_READ, 0, OPEN_EXISTING);
        RunToTheEnd();
    }
    EXPECT_EQ(Panel().Caption(PanelControl::lblRemoved), L"0");
    EndAndExpectSummary({L"1 files could not be removed."});
    EXPECT_EQ(LatestBlock(),
              SetBlock({L"Error 70 - Permission denied while removing ",
                        L"      <" + Destination() + L"\\bad.txt>"},
                       {L"Of 2 files checked, 1 were copied; 0 copies were removed and 1 could not "
                        L"be removed."}));
    EXPECT_TRUE(FileExists(Destination() + L"\\bad.txt"));
}

TEST_F(FailuresTest, AllKindsOfFailuresAreToldInTheirOrder) {
    TestTree copies(Destination());
    copies.AddFile(L"stays.txt", "s").AddFile(L"bad.txt", "old", 7200, FILE_ATTRIBUTE_READONLY);
    Source.AddFile(L"stays.txt", "s", 60, FILE_ATTRIBUTE_READONLY)
        .AddFile(L"sub\\never.txt", "never");
    copies.AddFile(L"sub", "a file where a folder should be");
    Settings.Write(L"Documents", L"CopyType", L"ReadOnly");
    Settings.Write(L"Documents", L"DeleteCopyReadOnly", L"Yes");
    {
        const UniqueHandle lock =
            OpenFile(Destination() + L"\\stays.txt", GENERIC_READ, 0, OPEN_EXISTING);
        RunToTheEnd();
    }
    EndAndExpectSummary({L"1 files failed to copy.", L"1 files could not be removed.",
                         L"1 folders (and their sub-folders) were unprocessable."});
    const Lines block = LatestBlock();
    ASSERT_GE(block.size(), 4U);
    EXPECT_EQ(Lines(block.end() - 4, block.end()),
              (Lines{L"Of 3 files checked, 1 were copied and 1 failed to copy; 0 copies were "
                     L"removed and 1 could not be removed.",
                     L"1 folders (and their sub-folders) were unprocessable.",
                     std::wstring(L"Ambrio ended ") + kNow, kSeparator}));
}

TEST_F(FailuresTest, WhenOnlyErrorsAreLoggedAFailureBringsItsLinesAndTheSummary) {
    Settings.Write(L"General", L"LogOnlyErrors", L"Yes");
    Settings.Write(L"Documents", L"Source", Source.PathOf(L"missing"));
    RunToTheEnd();
    EndAndExpectSummary({L"1 folders (and their sub-folders) were unprocessable."});
    EXPECT_EQ(LatestBlock(), Block({L"Error <" + Source.PathOf(L"missing") + L"> does not exist.",
                                    L"Of 0 files checked, 0 were copied; 0 copies were removed.",
                                    L"1 folders (and their sub-folders) were unprocessable."},
                                   L" ended "));
}

TEST_F(FailuresTest, AKilledRunLeavesNoHalfCopyAndTheNextRunCompletesIt) {
    const std::string large(24U << 20U, 'L');
    Source.AddFile(L"large.bin", large);
    Start(L"/S");
    EXPECT_TRUE(WaitUntil([this] { return FolderExists(Destination()); }));
    Program().Kill();
    const std::wstring copy = Destination() + L"\\large.bin";
    EXPECT_TRUE(!FileExists(copy) || ReadFileBytes(copy) == large);

    RunToTheEnd();
    EndByKey();
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
}

}  // namespace
}  // namespace ambrio::e2e
