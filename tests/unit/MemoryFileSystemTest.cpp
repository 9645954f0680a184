#include "tests/support/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/RuntimeError.h"
#include "platform/TemporaryName.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

TEST(MemoryFileSystem, ShowsTheWholeTreeAsLines) {
    MemoryFileSystem files;
    files.WriteFile(L"C:\\Data\\b.txt", "text", kAttributeReadOnly, 7);
    files.WriteFile(L"C:\\Data\\A\\long", std::string(65, 'x'), kAttributeArchive, 8);
    files.MakeLink(L"C:\\Data\\link", L"D:\\", MemoryFileSystem::LinkKind::MountPoint);
    const auto lines = files.Snapshot(L"C:\\Data");
    ASSERT_EQ(4U, lines.size());
    EXPECT_EQ(L"C:\\Data\\A D-----", lines[0]);
    EXPECT_TRUE(lines[1].starts_with(L"C:\\Data\\A\\long ----A- 8 <65 bytes, ")) << lines[1];
    EXPECT_EQ(L"C:\\Data\\b.txt -R---- 7 <text>", lines[2]);
    EXPECT_EQ(L"C:\\Data\\link D----L -> D:\\", lines[3]);
}

TEST(MemoryFileSystem, ListsInTheOrderOfMakingAndSeesChanges) {
    MemoryFileSystem files;
    for (const wchar_t* name : {L"C:\\z", L"C:\\a", L"C:\\m"}) {
        files.WriteFile(name);
    }
    const auto reader = files.GetFolder(L"C:\\");
    EXPECT_EQ(1, files.OpenHandles());
    FileEntry entry;
    ASSERT_TRUE(reader->Next(entry));
    EXPECT_EQ(L"z", entry.Name);
    files.Remove(L"C:\\a");
    files.WriteFile(L"C:\\late");
    ASSERT_TRUE(reader->Next(entry));
    EXPECT_EQ(L"m", entry.Name);
    ASSERT_TRUE(reader->Next(entry));
    EXPECT_EQ(L"late", entry.Name);
    EXPECT_FALSE(reader->Next(entry));
}

TEST(MemoryFileSystem, TellsAbsentAndUnreadyVolumesApart) {
    MemoryFileSystem files;
    files.SetVolume(L"D:", true, false);
    files.SetVolume(L"\\\\server\\share", true);
    EXPECT_EQ(ErrorNumber::PathNotFound, RuntimeErrorOf([&] { files.CreateFolder(L"X:\\a"); }));
    EXPECT_EQ(ErrorNumber::DiskNotReady, RuntimeErrorOf([&] { files.CreateFolder(L"D:\\a"); }));
    files.CreateFolder(L"\\\\SERVER\\Share\\a");
    EXPECT_TRUE(files.FolderExists(L"\\\\server\\share\\A"));
    const auto reader = files.GetFolder(L"\\\\server\\share");
    files.SetVolume(L"\\\\server\\share", false);
    FileEntry entry;
    EXPECT_EQ(ErrorNumber::PathNotFound, RuntimeErrorOf([&] { reader->Next(entry); }));
}

TEST(MemoryFileSystem, RunsFullInTheMiddleOfAFileAndLeavesNothing) {
    MemoryFileSystem files;
    files.WriteFile(L"C:\\big", std::string(3 << 20, 'x'));
    files.WriteFile(L"C:\\to\\big", "old");
    files.SetQuota(L"C:", 5 << 20);
    const auto before = files.Snapshot();
    EXPECT_EQ(ErrorNumber::DiskFull,
              RuntimeErrorOf([&] { files.CopyFile(L"C:\\big", L"C:\\to\\big", true, {}); }));
    EXPECT_EQ(before, files.Snapshot());
    const auto stream = files.OpenForAppending(L"C:\\log");
    files.SetQuota(L"C:", 0);
    EXPECT_EQ(ErrorNumber::DiskFull, RuntimeErrorOf([&] { stream->WriteLine(L"line"); }));
}

TEST(MemoryFileSystem, LeavesTheTemporaryOfAKilledCopyWhereItIs) {
    MemoryFileSystem files;
    files.WriteFile(L"C:\\a", "new");
    files.WriteFile(L"C:\\to\\a", "old");
    files.BeforeRename = [] { throw std::logic_error("killed"); };
    EXPECT_THROW(files.CopyFile(L"C:\\a", L"C:\\to\\a", true, {}), std::logic_error);
    EXPECT_EQ("old", files.Content(L"C:\\to\\a"));
    const auto hasTemporary = [&files] {
        FileEntry entry;
        const auto folder = files.GetFolder(L"C:\\to");
        while (folder->Next(entry)) {
            if (IsTemporaryName(entry.Name)) {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(hasTemporary());
    files.BeforeRename = nullptr;
    files.CopyFile(L"C:\\a", L"C:\\to\\a", true, {});
    EXPECT_EQ("new", files.Content(L"C:\\to\\a"));
    EXPECT_EQ(2U, files.Snapshot(L"C:\\to").size());
    EXPECT_TRUE(hasTemporary());
}

TEST(MemoryFileSystem, RefusesWhatTheTestDenies) {
    MemoryFileSystem files;
    files.WriteFile(L"C:\\a\\x");
    files.Node(L"C:\\a").ListingDenied = true;
    files.Node(L"C:\\a").WritingDenied = true;
    files.Node(L"C:\\a\\x").Locked = true;
    const auto denied = [](auto operation) {
        EXPECT_EQ(ErrorNumber::PermissionDenied, RuntimeErrorOf(operation));
    };
    denied([&] { files.GetFolder(L"C:\\a"); });
    denied([&] { files.CreateFolder(L"C:\\a\\new"); });
    denied([&] { files.CopyFile(L"C:\\a\\x", L"C:\\x", true, {}); });
    denied([&] { files.DeleteFile(L"C:\\a\\x", true); });
    EXPECT_FALSE(files.IsWritableFolder(L"C:\\a", L"log"));
}

TEST(MemoryFileSystem, HoldsAHundredThousandFilesInAFolderAndAVeryDeepTree) {
    MemoryFileSystem files;
    for (int i = 0; i < 100'000; ++i) {
        files.WriteFile(L"C:\\many\\" + std::to_wstring(i));
    }
    EXPECT_TRUE(files.FileExists(L"C:\\MANY\\99999"));
    std::wstring deep = L"D:";
    for (int i = 0; i < 10'000; ++i) {
        deep += L"\\d";
    }
    files.SetVolume(L"D:", true);
    files.MakeFolder(deep);
    EXPECT_TRUE(files.FolderExists(deep));
}

}  // namespace
}  // namespace ambrio
