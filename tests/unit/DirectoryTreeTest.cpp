#include "config/model/DirectoryTree.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "tests/support/MemoryFileSystem.h"

namespace ambrio {
namespace {

// The rows in short: a plus for an open one, blanks for the depth, the name.
std::vector<std::wstring> ShownLines(const DirectoryTree& tree) {
    std::vector<std::wstring> lines;
    for (const DirectoryRow& row : tree.Rows()) {
        lines.push_back((row.IsOpen ? L"+" : L" ") +
                        std::wstring(static_cast<std::size_t>(row.Depth), L' ') + row.Name);
    }
    return lines;
}

using Texts = std::vector<std::wstring>;

class DirectoryTreeTest : public ::testing::Test {
  protected:
    MemoryFileSystem files_;
    DirectoryTree tree_{files_};
};

TEST_F(DirectoryTreeTest, ShowsAncestorsAboveAndSubdirectoriesBelowByName) {
    files_.MakeFolder(L"C:\\Data\\Work\\beta");
    files_.MakeFolder(L"C:\\Data\\Work\\Alpha & Co");
    files_.MakeFolder(L"C:\\Data\\Work\\hidden", kAttributeHidden);
    files_.MakeFolder(L"C:\\Data\\Work\\System's own", kAttributeHidden | kAttributeSystem);
    files_.WriteFile(L"C:\\Data\\Work\\file.txt");
    tree_.Open(L"C:\\Data\\Work\\");
    EXPECT_EQ(
        (Texts{L"+C:\\", L"+ Data", L"+  Work", L"    Alpha & Co", L"    beta", L"    hidden"}),
        ShownLines(tree_));
    EXPECT_EQ(L"C:\\Data\\Work", tree_.Path());
    EXPECT_EQ(2U, tree_.OpenRow());
    EXPECT_EQ(L"C:\\Data\\Work\\beta", tree_.Rows()[4].Path);
    EXPECT_EQ(L"C:\\Data", tree_.Rows()[1].Path);
}

TEST_F(DirectoryTreeTest, ARootKeepsItsSeparator) {
    files_.MakeFolder(L"C:\\Data");
    tree_.Open(L"C:\\");
    EXPECT_EQ((Texts{L"+C:\\", L"  Data"}), ShownLines(tree_));
    EXPECT_EQ(L"C:\\", tree_.Path());
    EXPECT_EQ(L"C:\\Data", tree_.Rows()[1].Path);
}

TEST_F(DirectoryTreeTest, AShareIsARoot) {
    files_.SetVolume(L"\\\\server\\share", true);
    files_.MakeFolder(L"\\\\server\\share\\a\\b");
    tree_.Open(L"\\\\server\\share\\a");
    EXPECT_EQ((Texts{L"+\\\\server\\share\\", L"+ a", L"   b"}), ShownLines(tree_));
    EXPECT_EQ(L"\\\\server\\share\\a", tree_.Path());
    tree_.Open(L"\\\\server\\share");
    EXPECT_EQ((Texts{L"+\\\\server\\share", L"  a"}), ShownLines(tree_));
    EXPECT_EQ(L"\\\\server\\share\\a", tree_.Rows()[1].Path);
}

TEST_F(DirectoryTreeTest, StaysWhereItIsWhenADirectoryCannotBeOpened) {
    files_.SetVolume(L"D:", true, false);
    tree_.Open(L"C:\\");
    for (const wchar_t* path : {L"C:\\missing", L"F:\\My Documents", L"D:\\", L"", L"\\\\", L"x"}) {
        EXPECT_THROW(tree_.Open(path), RuntimeError) << path;
        EXPECT_EQ(L"C:\\", tree_.Path());
        EXPECT_EQ(1U, tree_.Rows().size());
    }
}

TEST_F(DirectoryTreeTest, OpensPathsOfAnyLength) {
    std::wstring path = L"C:";
    for (int level = 0; level < 12; ++level) {
        path += L'\\' + std::wstring(100, static_cast<wchar_t>(L'a' + level));
    }
    files_.MakeFolder(path);
    tree_.Open(path);
    EXPECT_EQ(path, tree_.Path());
    EXPECT_EQ(13U, tree_.Rows().size());
}

}  // namespace
}  // namespace ambrio
