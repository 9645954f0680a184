#include "platform/TemporaryName.h"
#include "tests/conformance/FileSystemConformance.h"

namespace ambrio {
namespace {

constexpr FileSeconds kOldTime = 13'000'000'000;
constexpr FileAttributes kThree = kAttributeReadOnly | kAttributeHidden | kAttributeSystem;

// A source, and a folder "to" with an older copy in it.
class CopyConformance : public FileSystemConformance {
  protected:
    void SetUp() override {
        FileSystemConformance::SetUp();
        if (IsSkipped()) {
            return;
        }
        source_ = NewFile(L"file", "new content");
        NewFolder(L"to");
        copy_ = NewFile(L"to\\file", "old");
        World().SetTime(copy_, kOldTime, 0);
    }

    // The old copy is there as it was, and nothing else.
    void ExpectUntouched() {
        EXPECT_TRUE(HasOnly(At(L"to"), {L"file"}));
        EXPECT_EQ("old", World().Read(copy_));
        EXPECT_EQ(kOldTime, Files().GetFile(copy_).DateLastModified);
    }

    std::wstring source_;
    std::wstring copy_;
};

TEST_P(CopyConformance, TheCopyHasContentAttributesAndTimeOfTheSource) {
    for (const FileAttributes attributes :
         {FileAttributes{0}, kAttributeReadOnly, kAttributeHidden | kAttributeSystem}) {
        const std::wstring name = L"copy" + std::to_wstring(attributes);
        World().SetTime(source_, 13'200'000'001, 5'000'000);
        Files().SetAttributes(source_, attributes | kAttributeArchive);
        Copy(source_, At(name));
        const FileEntry copy = Files().GetFile(At(name));
        EXPECT_EQ(attributes, copy.Attributes & kThree);
        EXPECT_NE(0U, copy.Attributes & kAttributeArchive);
        EXPECT_EQ(13'200'000'001, copy.DateLastModified);
        EXPECT_EQ("new content", World().Read(At(name)));
        Files().SetAttributes(source_, kAttributeArchive);
    }
}

TEST_P(CopyConformance, AnOldCopyIsReplacedWhole) {
    Copy(source_, copy_);
    EXPECT_EQ("new content", World().Read(copy_));
    EXPECT_TRUE(HasOnly(At(L"to"), {L"file"}));
    World().Write(source_, "");
    Copy(source_, At(L"to\\FILE"));
    EXPECT_EQ("", World().Read(copy_));
    EXPECT_EQ(1U, List(At(L"to")).size());
}

TEST_P(CopyConformance, WithoutOverwriteAnExistingCopyStays) {
    EXPECT_EQ(ErrorNumber::FileAlreadyExists, Copying(source_, copy_, false));
    ExpectUntouched();
    EXPECT_EQ(std::nullopt, Copying(source_, At(L"to\\other"), false));
    EXPECT_TRUE(HasOnly(At(L"to"), {L"file", L"other"}));
}

TEST_P(CopyConformance, AReadOnlyCopyIsRefused) {
    AddAttributes(copy_, kAttributeReadOnly);
    EXPECT_EQ(ErrorNumber::PermissionDenied, Copying(source_, copy_));
    ExpectUntouched();
}

TEST_P(CopyConformance, HiddenAndSystemCopiesAreReplaced) {
    for (const FileAttributes attribute : {kAttributeHidden, kAttributeSystem}) {
        World().Write(source_, "for " + std::to_string(attribute));
        AddAttributes(copy_, attribute);
        EXPECT_EQ(std::nullopt, Copying(source_, copy_));
        EXPECT_EQ("for " + std::to_string(attribute), World().Read(copy_));
        EXPECT_EQ(0U, Attributes(copy_) & kThree);
    }
}

TEST_P(CopyConformance, WhatIsMissingIsTold) {
    EXPECT_EQ(ErrorNumber::FileNotFound, Copying(At(L"absent"), copy_));
    EXPECT_EQ(ErrorNumber::PathNotFound, Copying(At(L"absent\\file"), copy_));
    EXPECT_EQ(ErrorNumber::PathNotFound, Copying(source_, At(L"absent\\file")));
    EXPECT_EQ(ErrorNumber::PathNotFound, Copying(source_, World().AbsentDrive() + L"\\file"));
    EXPECT_EQ(ErrorNumber::BadFileNameOrNumber, Copying(source_, At(L"to\\a|b")));
    EXPECT_EQ(ErrorNumber::PathNotFound, Copying(source_, source_ + L"\\below"));
    ExpectUntouched();
}

TEST_P(CopyConformance, FoldersAreNeitherCopiedNorReplaced) {
    EXPECT_EQ(ErrorNumber::FileNotFound, Copying(NewFolder(L"folder"), copy_));
    ExpectUntouched();
    EXPECT_EQ(ErrorNumber::PermissionDenied, Copying(source_, At(L"to")));
    ExpectUntouched();
    EXPECT_EQ(ErrorNumber::FileAlreadyExists, Copying(source_, At(L"to"), false));
}

TEST_P(CopyConformance, ALockedSourceLeavesTheOldCopy) {
    const auto lock = World().Lock(source_);
    EXPECT_EQ(ErrorNumber::PermissionDenied, Copying(source_, copy_));
    ExpectUntouched();
}

TEST_P(CopyConformance, ALockedCopyStaysAndLeavesNoTemporary) {
    auto lock = World().Lock(copy_);
    EXPECT_EQ(ErrorNumber::PermissionDenied, Copying(source_, copy_));
    lock.reset();
    ExpectUntouched();
    AddAttributes(source_, kThree);
    lock = World().Lock(copy_);
    EXPECT_EQ(ErrorNumber::PermissionDenied, Copying(source_, copy_));
    lock.reset();
    ExpectUntouched();
}

TEST_P(CopyConformance, ACopyOntoItselfIsRefusedAndLosesNothing) {
    for (const wchar_t* spelling : {L"file", L"FILE", L".\\file"}) {
        EXPECT_EQ(ErrorNumber::PermissionDenied, Copying(source_, At(spelling)));
        EXPECT_EQ("new content", World().Read(source_));
        EXPECT_TRUE(HasOnly(World().Root(), {L"file", L"to"}));
    }
}

TEST_P(CopyConformance, TheTemporaryOfAnotherProgramIsLeftAlone) {
    const std::wstring name = TemporaryName(0x7E57, World().ProcessId());
    const std::wstring other = NewFile(L"to\\" + name, "half");
    EXPECT_EQ(std::nullopt, Copying(source_, copy_));
    EXPECT_EQ("new content", World().Read(copy_));
    EXPECT_EQ("half", World().Read(other));
    EXPECT_TRUE(HasOnly(At(L"to"), {L"file", name}));
}

TEST_P(CopyConformance, ABigCopyLetsItsCallerBreathe) {
    World().Write(source_, std::string(64U << 20U, 'x'));
    int yields = 0;
    Files().CopyFile(source_, copy_, true, [&] { ++yields; });
    EXPECT_GT(yields, 0);
    EXPECT_EQ(64U << 20U, Files().GetFile(copy_).Size);
}

TEST_P(CopyConformance, NobodySeesHalfACopy) {
    const std::string content(16U << 20U, 'x');
    World().Write(source_, content);
    // All of the new one is seen when it has its name and the caller is not told yet.
    Files().CopyFile(source_, copy_, true, [&] {
        try {
            const std::string seen = World().Read(copy_);
            EXPECT_TRUE(seen == "old" || seen == content) << seen.size();
        } catch (const FileSystemWorld::IsHeld&) {
            // Where our look was in its way the copier looks for a moment who holds the file.
        }
    });
    EXPECT_EQ(16U << 20U, Files().GetFile(copy_).Size);
}

TEST_P(CopyConformance, TheLongestNameHasRoomForItsTemporary) {
    const std::wstring name(255, L'n');
    EXPECT_EQ(std::nullopt, Copying(source_, At(L"to\\" + name)));
    EXPECT_EQ(std::nullopt, Copying(source_, At(L"to\\" + name)));
    EXPECT_TRUE(HasOnly(At(L"to"), {L"file", name}));
    EXPECT_NE(std::nullopt, Copying(source_, At(L"to\\" + name + L"n")));
    EXPECT_TRUE(HasOnly(At(L"to"), {L"file", name}));
}

TEST_P(CopyConformance, ANameThatIsTooLongIsABadName) {
    EXPECT_EQ(ErrorNumber::BadFileNameOrNumber,
              Copying(source_, At(L"to\\" + std::wstring(256, L'n'))));
    ExpectUntouched();
}

INSTANTIATE_TEST_SUITE_P(EveryWorld, CopyConformance, testing::ValuesIn(FileSystemWorlds()),
                         WorldName);

}  // namespace
}  // namespace ambrio
