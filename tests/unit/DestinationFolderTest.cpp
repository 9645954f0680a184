#include "engine/DestinationFolder.h"

#include <gtest/gtest.h>

#include "tests/support/CountingFileSystem.h"
#include "tests/support/FailingFileSystem.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;

class DestinationFolderTest : public testing::Test {
  protected:
    bool Make(const std::wstring& path) { return Make(Files, path); }
    bool Make(FileSystem& files, const std::wstring& path) {
        return MakeDestinationFolder(files, path, Action);
    }
    [[nodiscard]] std::optional<ErrorNumber> ErrorOf(FileSystem& files, const std::wstring& path) {
        return RuntimeErrorOf([&] { Make(files, path); });
    }

    MemoryFileSystem Files;
    FolderAction Action = FolderAction::Accessing;
};

TEST_F(DestinationFolderTest, AnExistingFolderIsLeftAndNothingIsBeingCreated) {
    Files.MakeFolder(L"C:\\There");
    EXPECT_FALSE(Make(L"C:\\There"));
    EXPECT_EQ(Action, FolderAction::Accessing);
}

TEST_F(DestinationFolderTest, ThreeMissingLevelsAreMadeOneAPass) {
    CountingFileSystem counting(Files);
    EXPECT_TRUE(Make(counting, L"C:\\a\\b\\c"));
    Lines made;
    for (const FileCall& call : counting.Calls()) {
        if (call.Operation == FileOperation::CreateFolder) {
            made.push_back(call.Path);
        }
    }
    EXPECT_EQ(made, (Lines{L"C:\\a\\b\\c", L"C:\\a\\b", L"C:\\a",  // makes the first
                           L"C:\\a\\b\\c", L"C:\\a\\b",            // the second
                           L"C:\\a\\b\\c"}));                      // the third
    EXPECT_TRUE(Files.FolderExists(L"C:\\a\\b\\c"));
    EXPECT_EQ(Action, FolderAction::Creating);
}

TEST_F(DestinationFolderTest, ADriveThatDoesNotExistFailsAfterTheWholeScan) {
    EXPECT_EQ(ErrorOf(Files, L"Q:\\a\\b"), ErrorNumber::PathNotFound);
    EXPECT_EQ(Action, FolderAction::Creating);
}

TEST_F(DestinationFolderTest, AFileInTheWayIsReported) {
    Files.WriteFile(L"C:\\file");
    EXPECT_EQ(ErrorOf(Files, L"C:\\file"), ErrorNumber::FileAlreadyExists);
    EXPECT_TRUE(ErrorOf(Files, L"C:\\file\\below").has_value());
}

TEST_F(DestinationFolderTest, ARefusalAtTheFolderItselfIsReported) {
    Files.Node(L"C:\\").WritingDenied = true;
    EXPECT_EQ(ErrorOf(Files, L"C:\\a"), ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorOf(Files, L"C:\\a\\b"), ErrorNumber::PermissionDenied);
}

// Wanted: it is what a level that exists may give, so the next pass goes one level down.
TEST_F(DestinationFolderTest, Error75AtALevelAboveCountsAsSuccess) {
    // The second call is the first one above the folder, and it does make the level.
    class Says75 : public ForwardingFileSystem {
      public:
        using ForwardingFileSystem::ForwardingFileSystem;
        void CreateFolder(const std::wstring& path) override {
            ForwardingFileSystem::CreateFolder(path);
            if (path == L"C:\\a") {
                throw RuntimeError(ErrorNumber::PathFileAccessError);
            }
        }
    };
    Says75 files(Files);
    EXPECT_TRUE(Make(files, L"C:\\a\\b"));
}

TEST_F(DestinationFolderTest, Error75ThatBringsNoProgressEnds) {
    FailingFileSystem files(Files,
                            {.Number = ErrorNumber::PathFileAccessError,
                             .Kind = FileOperation::CreateFolder,
                             .Matches = [](const FileCall& call) { return call.Path == L"C:\\a"; },
                             .AndAllAfter = true});
    EXPECT_EQ(ErrorOf(files, L"C:\\a\\b"), ErrorNumber::PathFileAccessError);
}

TEST_F(DestinationFolderTest, AFolderThatIsMadeAndNeverThereEnds) {
    FailingFileSystem files(Files, {.Kind = FileOperation::FolderExists, .AndAllAfter = true});
    EXPECT_TRUE(ErrorOf(files, L"C:\\a").has_value());
    EXPECT_TRUE(ErrorOf(files, L"C:\\a\\b\\c").has_value());
}

TEST_F(DestinationFolderTest, EndsForAnyText) {
    const std::wstring longName(40'000, L'x');
    for (const std::wstring& path :
         {std::wstring(), std::wstring(L"\\"), std::wstring(L"\\\\"), std::wstring(L"\\\\\\\\"),
          std::wstring(L"\\\\server"), std::wstring(L"\\\\server\\share\\a"), std::wstring(L"C:"),
          std::wstring(L"C:x\\y"), std::wstring(L"relative\\folder"),
          std::wstring(L"C:\\\\a\\\\\\b\\\\"), std::wstring(L"C:\\a\\..\\..\\b\\."),
          std::wstring(L"C:\\a<b\\c"), std::wstring(L"C:/a/b"), std::wstring(L" "),
          L"C:\\" + longName, longName, std::wstring(500, L'\\')}) {
        const bool failed = ErrorOf(Files, path).has_value();
        EXPECT_NE(failed, Files.FolderExists(path));
    }
}

}  // namespace
}  // namespace ambrio
