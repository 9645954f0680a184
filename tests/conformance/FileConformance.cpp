#include "tests/conformance/FileSystemConformance.h"

namespace ambrio {
namespace {

constexpr FileAttributes kFour =
    kAttributeReadOnly | kAttributeHidden | kAttributeSystem | kAttributeArchive;

TEST_P(FileSystemConformance, GetFileTellsWhatIsMissing) {
    EXPECT_EQ(ErrorNumber::FileNotFound, Getting(At(L"absent")));
    EXPECT_EQ(ErrorNumber::PathNotFound, Getting(At(L"absent\\file")));
    EXPECT_EQ(ErrorNumber::FileNotFound, Getting(NewFolder(L"folder")));
    EXPECT_EQ(ErrorNumber::PathNotFound, Getting(World().AbsentDrive() + L"\\file"));
    EXPECT_EQ(ErrorNumber::BadFileNameOrNumber, Getting(At(L"a*b")));
    EXPECT_EQ(ErrorNumber::PathNotFound, Getting(L""));
}

TEST_P(FileSystemConformance, TimesAreWholeSecondsWithFractionsDropped) {
    const std::wstring file = NewFile(L"file");
    for (const FileSeconds time : {11'960'000'000, 13'440'000'000, 15'000'000'000}) {
        World().SetTime(file, time, 9'999'999);
        EXPECT_EQ(time, Files().GetFile(file).DateLastModified);
    }
}

TEST_P(FileSystemConformance, TheFirstSecondOfTheCalendarIsKept) {
    const std::wstring file = NewFile(L"file");
    World().SetTime(file, 1, 0);
    EXPECT_EQ(1, Files().GetFile(file).DateLastModified);
}

TEST_P(FileSystemConformance, ALockedFileCanStillBeLookedAt) {
    const std::wstring file = NewFile(L"file", "abc");
    const auto lock = World().Lock(file);
    EXPECT_TRUE(Files().FileExists(file));
    EXPECT_EQ(3U, Files().GetFile(file).Size);
    EXPECT_EQ(3U, Files().FindFile(file).value_or(FileEntry()).Size);
}

TEST_P(FileSystemConformance, SetAttributesKeepsWhatItIsGiven) {
    const std::wstring file = NewFile(L"file");
    for (const FileAttributes attributes :
         {kAttributeHidden, kAttributeSystem, kAttributeHidden | kAttributeSystem,
          kAttributeReadOnly}) {
        Files().SetAttributes(file, attributes | kAttributeArchive);
        EXPECT_EQ(attributes | kAttributeArchive, Attributes(file) & kFour);
        Files().SetAttributes(file, kAttributeArchive);
        EXPECT_EQ(kAttributeArchive, Attributes(file) & kFour);
    }
}

TEST_P(FileSystemConformance, AFileCanBeReadOnlyAndHiddenAtOnce) {
    const std::wstring file = NewFile(L"file");
    Files().SetAttributes(file, kFour);
    EXPECT_EQ(kFour, Attributes(file) & kFour);
    Files().SetAttributes(file, kAttributeReadOnly | kAttributeArchive);
    EXPECT_EQ(kAttributeReadOnly | kAttributeArchive, Attributes(file) & kFour);
    Copy(file, At(L"copy"));
    Files().SetAttributes(file, kFour);
    Copy(file, At(L"copy of four"));
    EXPECT_EQ(kFour, Attributes(At(L"copy of four")) & kFour);
}

TEST_P(FileSystemConformance, TheArchiveBitCanBeClearedAndComesBackWithAWrite) {
    const std::wstring file = NewFile(L"file");
    EXPECT_NE(0U, Attributes(file) & kAttributeArchive);
    Files().SetAttributes(file, kAttributeHidden);
    EXPECT_EQ(kAttributeHidden, Attributes(file) & kFour);
    Files().SetAttributes(file, 0);
    EXPECT_EQ(0U, Attributes(file) & kFour);
    Files().OpenForAppending(file)->WriteLine(L"more");
    EXPECT_NE(0U, Attributes(file) & kAttributeArchive);
}

TEST_P(FileSystemConformance, SetAttributesTellsWhatIsMissingAndKeepsAFolderAFolder) {
    const auto setting = [this](const std::wstring& path) {
        return RuntimeErrorOf([&] { Files().SetAttributes(path, kAttributeHidden); });
    };
    EXPECT_EQ(ErrorNumber::FileNotFound, setting(At(L"absent")));
    EXPECT_EQ(ErrorNumber::PathNotFound, setting(At(L"absent\\file")));
    EXPECT_EQ(std::nullopt, setting(NewFolder(L"folder")));
    EXPECT_TRUE(Files().FolderExists(At(L"folder")));
    EXPECT_NE(0U, List(World().Root()).at(L"folder").Attributes & kAttributeHidden);
}

TEST_P(FileSystemConformance, DeleteFileRemovesOneFile) {
    const std::wstring file = NewFile(L"file");
    NewFile(L"other");
    EXPECT_EQ(std::nullopt, Deleting(At(L"FILE")));
    EXPECT_TRUE(HasOnly(World().Root(), {L"other"}));
    EXPECT_EQ(ErrorNumber::FileNotFound, Deleting(file));
    EXPECT_EQ(ErrorNumber::PathNotFound, Deleting(At(L"absent\\file")));
    EXPECT_EQ(ErrorNumber::FileNotFound, Deleting(NewFolder(L"folder"), true));
    EXPECT_TRUE(Files().FolderExists(At(L"folder")));
}

TEST_P(FileSystemConformance, AReadOnlyFileIsDeletedByForceOnly) {
    const std::wstring file = NewFile(L"file");
    AddAttributes(file, kAttributeReadOnly | kAttributeHidden);
    EXPECT_EQ(ErrorNumber::PermissionDenied, Deleting(file));
    EXPECT_TRUE(Files().FileExists(file));
    EXPECT_EQ(std::nullopt, Deleting(file, true));
    EXPECT_FALSE(Files().FileExists(file));
}

TEST_P(FileSystemConformance, AFailedRemovalGivesTheAttributesBack) {
    const std::wstring file = NewFile(L"file");
    AddAttributes(file, kAttributeReadOnly | kAttributeHidden);
    const FileAttributes before = Attributes(file);
    const auto lock = World().Lock(file);
    EXPECT_EQ(ErrorNumber::PermissionDenied, Deleting(file, true));
    EXPECT_EQ(before, Attributes(file));
}

TEST_P(FileSystemConformance, ALinkToAFileIsDescribedByItsTargetAndDeletedAlone) {
    const std::wstring target = NewFile(L"target", "12345");
    if (!World().MakeLink(At(L"link"), target, FileSystemWorld::LinkKind::ToFile) ||
        !World().MakeLink(At(L"loose"), At(L"nowhere"), FileSystemWorld::LinkKind::ToFile)) {
        GTEST_SKIP() << "this user may not make links";
    }
    EXPECT_EQ(L"link", Files().GetFile(At(L"link")).Name);
    EXPECT_EQ(5U, Files().GetFile(At(L"link")).Size);
    EXPECT_EQ(5U, Files().FindFile(At(L"link")).value_or(FileEntry()).Size);
    EXPECT_TRUE(Files().FindFile(At(L"loose")).value_or(FileEntry()).IsLink());
    EXPECT_TRUE(Files().GetFile(At(L"loose")).IsLink());
    EXPECT_EQ(ErrorNumber::FileNotFound, Copying(At(L"loose"), At(L"copy")));
    EXPECT_EQ(std::nullopt, Copying(At(L"link"), At(L"copy")));
    EXPECT_EQ(std::nullopt, Deleting(At(L"link")));
    EXPECT_EQ("12345", World().Read(target));
    EXPECT_EQ("12345", World().Read(At(L"copy")));
}

}  // namespace
}  // namespace ambrio
