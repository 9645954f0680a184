#include <gtest/gtest.h>

#include "tests/support/CountingFileSystem.h"
#include "tests/support/FailingFileSystem.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

// One of each operation, in the order of FileOperation but for the readers and streams, which
// follow their opening.
std::optional<ErrorNumber> DoEverything(FileSystem& files) {
    return RuntimeErrorOf([&] {
        files.FileExists(L"C:\\a");
        files.FolderExists(L"C:\\");
        files.GetFile(L"C:\\a");
        files.FindFile(L"C:\\a");
        FileEntry entry;
        const auto reader = files.GetFolder(L"C:\\");
        reader->Next(entry);
        reader->Identity();
        files.IdentityOf(L"C:\\");
        files.CreateFolder(L"C:\\new");
        files.SetAttributes(L"C:\\a", 0);
        files.CopyFile(L"C:\\a", L"C:\\new\\b", true, {});
        files.DeleteFile(L"C:\\a", false);
        const auto log = files.OpenForAppending(L"C:\\log");
        log->WriteLine(L"x");
        log->Flush();
        files.IsWritableFolder(L"C:\\", L"log");
    });
}

TEST(FailingFileSystem, FailsEachOperationInTurn) {
    int at = 1;
    int thrown = 0;
    for (;; ++at) {
        MemoryFileSystem memory;
        memory.WriteFile(L"C:\\a");
        FailingFileSystem files(memory, {.At = at, .Number = ErrorNumber::DiskFull});
        const auto error = DoEverything(files);
        thrown += error == ErrorNumber::DiskFull ? 1 : 0;
        EXPECT_EQ(0, memory.OpenHandles());
        if (!files.Fired()) {
            EXPECT_EQ(std::nullopt, error);
            EXPECT_EQ(at - 1, files.Operations());
            break;
        }
    }
    EXPECT_EQ(17, at);
    EXPECT_EQ(11, thrown);
}

TEST(FailingFileSystem, FailsOneKindOnOnePathAndGoesOnFailing) {
    MemoryFileSystem memory;
    memory.WriteFile(L"C:\\a");
    memory.WriteFile(L"C:\\b");
    FailingFileSystem files(memory);
    files.Arm({.At = 2,
               .Number = ErrorNumber::DiskNotReady,
               .Kind = FileOperation::FileExists,
               .Matches = [](const FileCall& call) { return call.Path == L"C:\\a"; },
               .AndAllAfter = true,
               .QuestionsThrow = true});
    EXPECT_TRUE(files.FileExists(L"C:\\a"));
    EXPECT_TRUE(files.FileExists(L"C:\\b"));
    EXPECT_FALSE(files.Fired());
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(ErrorNumber::DiskNotReady, RuntimeErrorOf([&] { files.FileExists(L"C:\\a"); }));
    }
    ASSERT_TRUE(files.FailedCall());
    EXPECT_EQ(L"C:\\a", files.FailedCall()->Path);
}

TEST(CountingFileSystem, CountsByKindByPathAndByFolder) {
    MemoryFileSystem memory;
    memory.WriteFile(L"C:\\a");
    CountingFileSystem files(memory);
    EXPECT_EQ(std::nullopt, DoEverything(files));
    EXPECT_EQ(16U, files.Calls().size());
    EXPECT_EQ(1, files.CallsOf(FileOperation::Next));
    EXPECT_EQ(2, files.CallsOf(FileOperation::IdentityOf));
    EXPECT_EQ(6, files.CallsOn(L"c:\\A"));
    EXPECT_EQ(1, files.CallsBelow(L"C:\\NEW"));
    files.Clear();
    EXPECT_EQ(0, files.CallsOn(L"C:\\a"));
}

}  // namespace
}  // namespace ambrio
