#include <gtest/gtest.h>

#include <string>

#include "engine/FolderWalk.h"
#include "engine/RunContext.h"
#include "settings/SettingKeys.h"
#include "tests/support/EngineBench.h"

namespace ambrio {
namespace {

// The walk's public entry, each of whose parameters shows in what it alone brings about.
class CopyFilesTest : public testing::Test {
  protected:
    CopyFilesTest() {
        Write(L"C:\\Here\\Sub\\below", "below", kAttributeArchive, 2);
        Write(L"C:\\Here\\set", "new", kAttributeArchive, 2);
        Write(L"C:\\Here\\clear", "new", 0, 2);
        Write(L"C:\\There\\set", "old", kAttributeReadOnly, 1);
        Write(L"C:\\There\\clear", "old", 0, 1);
    }

    void Write(const wchar_t* path, const char* content, FileAttributes attributes,
               FileSeconds time) {
        Bench.Files.WriteFile(path, content, attributes, time);
    }
    [[nodiscard]] std::string Content(const std::wstring& path) {
        return Bench.Files.FileExists(path) ? Bench.Files.Content(path) : "none";
    }
    [[nodiscard]] bool HasArchiveBit() {
        return (Bench.Files.Node(L"C:\\Here\\set").Attributes & kAttributeArchive) != 0;
    }

    EngineBench Bench;
    RunState State;
    RunLog Log{Bench.Files, Bench.App, State};
    RunContext Run{Bench.Files, Log, Bench.Panel, Bench.Host, State, Bench.Signals};
    FileCopier Copier{Run};
    FolderWalk Walk{Run, Copier};
};

TEST_F(CopyFilesTest, WithEveryFlagDown) {
    Walk.CopyFiles(L"C:\\Here", L"C:\\There", false, kCopyTypeArchiveBit, false, false, false);
    EXPECT_EQ(Content(L"C:\\There\\set"), "old");  // it is read-only
    EXPECT_EQ(Content(L"C:\\There\\clear"), "old");
    EXPECT_EQ(Content(L"C:\\There\\Sub\\below"), "none");
    EXPECT_TRUE(HasArchiveBit());
    EXPECT_EQ(State.CopyErrors, 1);
    EXPECT_EQ(State.CopiesRemoved, 0);
}

TEST_F(CopyFilesTest, Recursive) {
    Walk.CopyFiles(L"C:\\Here", L"C:\\There", true, kCopyTypeArchiveBit, false, false, false);
    EXPECT_EQ(Content(L"C:\\There\\Sub\\below"), "below");
    EXPECT_EQ(State.CopyErrors, 1);
}

TEST_F(CopyFilesTest, OfAnotherCopyType) {
    Walk.CopyFiles(L"C:\\Here", L"C:\\There", false, kCopyTypeDateTime, false, false, false);
    EXPECT_EQ(Content(L"C:\\There\\clear"), "new");
}

// Wanted: also when the copy failed.
TEST_F(CopyFilesTest, ClearingTheArchiveBit) {
    Walk.CopyFiles(L"C:\\Here", L"C:\\There", false, kCopyTypeArchiveBit, true, false, false);
    EXPECT_FALSE(HasArchiveBit());
    EXPECT_EQ(Content(L"C:\\There\\clear"), "old");
}

TEST_F(CopyFilesTest, ClearsNoArchiveBitOfAnotherCopyType) {
    Walk.CopyFiles(L"C:\\Here", L"C:\\There", false, kCopyTypeDateTime, true, false, true);
    EXPECT_EQ(Content(L"C:\\There\\set"), "new");
    EXPECT_TRUE(HasArchiveBit());
}

TEST_F(CopyFilesTest, DeletingCopies) {
    Walk.CopyFiles(L"C:\\Here", L"C:\\There", false, kCopyTypeArchiveBit, false, true, false);
    EXPECT_EQ(Content(L"C:\\There\\clear"), "none");
    EXPECT_EQ(Content(L"C:\\There\\set"), "old");
    EXPECT_TRUE(HasArchiveBit());
}

TEST_F(CopyFilesTest, OverwritingReadOnlyCopies) {
    Walk.CopyFiles(L"C:\\Here", L"C:\\There", false, kCopyTypeArchiveBit, false, false, true);
    EXPECT_EQ(Content(L"C:\\There\\set"), "new");
    EXPECT_EQ(State.CopyErrors, 0);
}

// A folder that fails is a folder of the log, and nothing comes out.
TEST_F(CopyFilesTest, OfASourceThatIsNotThere) {
    Walk.CopyFiles(L"C:\\Nowhere", L"C:\\There", true, kCopyTypeDateTime, false, false, false);
    EXPECT_EQ(State.FolderErrors, 1);
    EXPECT_TRUE(Bench.HasLog({L"Error <C:\\Nowhere> does not exist."}));
}

}  // namespace
}  // namespace ambrio
