// Where the log goes when the program lies where its user may not write.

#include <gtest/gtest.h>

#include "tests/e2e/support/Environment.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

// Gives everyone these rights on a folder, and nobody more.
void SetFolderRights(const std::wstring& folder, DWORD rights) {
    BYTE sid[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof sid;
    alignas(ACL) BYTE list[256];
    auto* acl = reinterpret_cast<ACL*>(list);
    SECURITY_DESCRIPTOR descriptor{};
    if (CreateWellKnownSid(WinWorldSid, nullptr, sid, &size) == 0 ||
        InitializeAcl(acl, sizeof list, ACL_REVISION) == 0 ||
        AddAccessAllowedAce(acl, ACL_REVISION, rights, sid) == 0 ||
        InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) == 0 ||
        SetSecurityDescriptorDacl(&descriptor, TRUE, acl, FALSE) == 0 ||
        SetFileSecurityW(folder.c_str(), DACL_SECURITY_INFORMATION, &descriptor) == 0) {
        ThrowWin32Error("setting the rights on a folder");
    }
}

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

    [[nodiscard]] bool IsFolderWritable() const {
        const std::wstring probe = Folder.Below(L"probe");
        const bool written = CreateDirectoryW(probe.c_str(), nullptr) != 0;
        RemoveDirectoryW(probe.c_str());
        return written;
    }
};

TEST_F(ReadOnlyFolderTest, HasTheLogInTheUsersData) {
    if (IsFolderWritable()) {
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
