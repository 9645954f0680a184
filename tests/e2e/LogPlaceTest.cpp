// Where the log goes when the program lies where its user may not write.

#include <gtest/gtest.h>

#include "tests/e2e/support/Environment.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/FolderRights.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

// A log that the user of this account may have is kept.
class LogPlaceTest : public SaverTest {
  protected:
    LogPlaceTest() {
        Source.AddFile(L"file.txt", "file");
        MakeFolders(Destination());
        WriteOneSet();
        MoveFileExW(userFolder_.c_str(), keptFolder_.c_str(), 0);
    }
    ~LogPlaceTest() override {
        RemoveTree(userFolder_);
        MoveFileExW(keptFolder_.c_str(), userFolder_.c_str(), 0);
    }

    // A run with a failure must name the user's log wherever it names one.
    void ExpectUsersLog() {
        Settings.Write(L"Documents", L"Source", Source.PathOf(L"missing"));
        RunToTheEnd();
        EXPECT_EQ(Panel().Caption(PanelControl::lblSet),
                  std::wstring(kAllSetsProcessed) + L"<ERRORS reported>\r\nsee " + userLog_);
        PressKey(VK_SPACE);
        const MessageBoxProbe box = WaitForBox();
        EXPECT_NE(box.Text().find(L"See " + userLog_ + L" for details."), std::wstring::npos);
        EXPECT_TRUE(box.Press());
        EXPECT_TRUE(Ends());
        EXPECT_TRUE(LogText(userLog_).Contains(L"'Documents' start"));
    }

    const std::wstring userFolder_ = TextFromEnvironment(L"LOCALAPPDATA") + L"\\Ambrio";
    const std::wstring keptFolder_ =
        TextFromEnvironment(L"LOCALAPPDATA") + L"\\Ambrio kept by a test";
    const std::wstring userLog_ = userFolder_ + L"\\Ambrio.log";
};

// The program's folder can only be read.
class ReadOnlyFolderTest : public LogPlaceTest {
  protected:
    ReadOnlyFolderTest() {
        SetFolderRights(Folder.Path(), FILE_GENERIC_READ | FILE_GENERIC_EXECUTE);
    }
    ~ReadOnlyFolderTest() override { SetFolderRights(Folder.Path(), FILE_ALL_ACCESS); }
};

TEST_F(ReadOnlyFolderTest, HasTheLogInTheUsersData) {
    if (IsFolderWritable(Folder.Path())) {
        GTEST_SKIP() << "nothing is refused to this user";
    }
    ExpectUsersLog();
    EXPECT_FALSE(Log().Exists());
}

// As somebody else's run may leave it in a folder where everybody may make files.
TEST_F(LogPlaceTest, IsTheUsersDataWhenTheOldLogCannotBeWritten) {
    WriteFileBytes(Folder.LogFile(), "theirs");
    SetFileAttributesW(Folder.LogFile().c_str(), FILE_ATTRIBUTE_READONLY);
    ExpectUsersLog();
    EXPECT_EQ(ReadFileBytes(Folder.LogFile()), "theirs");
    SetFileAttributesW(Folder.LogFile().c_str(), FILE_ATTRIBUTE_NORMAL);
}

}  // namespace
}  // namespace ambrio::e2e
