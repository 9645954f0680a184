#include "tests/conformance/FileSystemConformance.h"

namespace ambrio {
namespace {

TEST_P(FileSystemConformance, CreateFolderMakesOneLevel) {
    EXPECT_EQ(std::nullopt, Creating(At(L"a")));
    EXPECT_TRUE(Files().FolderExists(At(L"A")));
    EXPECT_FALSE(Files().FileExists(At(L"a")));
    EXPECT_EQ(ErrorNumber::PathNotFound, Creating(At(L"b\\c")));
    EXPECT_EQ(std::nullopt, Creating(At(L"b\\")));
    EXPECT_EQ(std::nullopt, Creating(At(L"b\\c")));
}

TEST_P(FileSystemConformance, CreateFolderRefusesWhatExists) {
    NewFolder(L"folder");
    NewFile(L"file");
    EXPECT_EQ(ErrorNumber::FileAlreadyExists, Creating(At(L"FOLDER")));
    EXPECT_EQ(ErrorNumber::FileAlreadyExists, Creating(At(L"file")));
    EXPECT_EQ(ErrorNumber::FileAlreadyExists, Creating(World().Root().substr(0, 3)));
}

TEST_P(FileSystemConformance, CreateFolderNamesWhatIsWrongWithAPath) {
    NewFile(L"file");
    EXPECT_EQ(ErrorNumber::PathNotFound, Creating(At(L"file\\below")));
    EXPECT_EQ(ErrorNumber::BadFileNameOrNumber, Creating(At(L"a?b")));
    EXPECT_EQ(ErrorNumber::PathNotFound, Creating(World().AbsentDrive() + L"\\a"));
    for (const wchar_t* nothing : {L"", L"\\", L"\\\\", L"/", L"\\\\server", L"\\\\server\\"}) {
        EXPECT_EQ(ErrorNumber::PathNotFound, Creating(nothing));
    }
}

TEST_P(FileSystemConformance, ListingGivesNamesAttributesSizesAndTimes) {
    World().SetTime(NewFile(L"plain", "four"), 13'000'000'000, 0);
    AddAttributes(NewFile(L"hidden", ""), kAttributeHidden | kAttributeSystem);
    NewFolder(L"folder");
    NewFile(L"folder\\inside");
    const auto entries = List(World().Root());
    ASSERT_EQ(3U, entries.size());
    EXPECT_FALSE(entries.at(L"plain").IsFolder());
    EXPECT_EQ(4U, entries.at(L"plain").Size);
    EXPECT_EQ(13'000'000'000, entries.at(L"plain").DateLastModified);
    EXPECT_EQ(0U, entries.at(L"hidden").Size);
    EXPECT_NE(0U, entries.at(L"hidden").Attributes & kAttributeHidden);
    EXPECT_NE(0U, entries.at(L"hidden").Attributes & kAttributeSystem);
    EXPECT_TRUE(entries.at(L"folder").IsFolder());
    EXPECT_FALSE(entries.at(L"folder").IsLink());
    EXPECT_EQ(0U, entries.at(L"folder").Size);
}

TEST_P(FileSystemConformance, ListingAgreesWithGetFile) {
    AddAttributes(NewFile(L"a", "12345"), kAttributeReadOnly | kAttributeHidden);
    World().SetTime(NewFile(L"b"), 13'100'000'000, 9'999'999);
    for (const auto& [name, listed] : List(World().Root())) {
        const FileEntry got = Files().GetFile(At(name));
        EXPECT_EQ(name, got.Name);
        EXPECT_EQ(listed.Attributes, got.Attributes);
        EXPECT_EQ(listed.DateLastModified, got.DateLastModified);
        EXPECT_EQ(listed.Size, got.Size);
        const auto found = Files().FindFile(At(name));
        ASSERT_TRUE(found);
        EXPECT_EQ(name, found->Name);
        EXPECT_EQ(listed.Attributes, found->Attributes);
        EXPECT_EQ(listed.DateLastModified, found->DateLastModified);
        EXPECT_EQ(listed.Size, found->Size);
    }
}

TEST_P(FileSystemConformance, AnEmptyFolderIsListedAndAnAbsentOneIsNot) {
    EXPECT_TRUE(HasOnly(World().Root(), {}));
    EXPECT_EQ(ErrorNumber::PathNotFound, Listing(At(L"absent")));
    EXPECT_EQ(ErrorNumber::PathNotFound, Listing(At(L"absent\\below")));
    EXPECT_EQ(ErrorNumber::PathNotFound, Listing(NewFile(L"file")));
    EXPECT_EQ(ErrorNumber::PathNotFound, Listing(World().AbsentDrive() + L"\\"));
    EXPECT_EQ(ErrorNumber::PathNotFound, Listing(L""));
}

TEST_P(FileSystemConformance, ExistenceIsAnsweredForAnyText) {
    const std::wstring file = NewFile(L"file");
    EXPECT_TRUE(Files().FileExists(file));
    EXPECT_FALSE(Files().FolderExists(file));
    EXPECT_TRUE(Files().FolderExists(World().Root().substr(0, 3)));
    EXPECT_TRUE(Files().FindFile(At(L"FILE")));
    EXPECT_FALSE(Files().FindFile(World().Root()));
    for (const std::wstring& text :
         {std::wstring(), std::wstring(L"\\"), std::wstring(L"*?"), At(L"a:b:c"), At(L"absent\\x"),
          At(L"file\\x"), World().AbsentDrive(), std::wstring(40'000, L'x'),
          At(std::wstring(40'000, L'x')), std::wstring(L"\\\\.\\nothing")}) {
        EXPECT_FALSE(Files().FileExists(text));
        EXPECT_FALSE(Files().FindFile(text));
    }
    EXPECT_FALSE(Files().FolderExists(L""));
    EXPECT_FALSE(Files().FolderExists(World().AbsentDrive() + L"\\"));
}

TEST_P(FileSystemConformance, IdentityIsThatOfTheFolderAndNotOfItsSpelling) {
    const std::wstring a = NewFolder(L"Folder");
    const auto identity = Files().IdentityOf(a);
    ASSERT_TRUE(identity);
    EXPECT_EQ(identity, Files().IdentityOf(At(L"FOLDER\\")));
    EXPECT_EQ(identity, Files().IdentityOf(At(L".\\x\\..\\folder")));
    EXPECT_NE(identity, Files().IdentityOf(NewFolder(L"other")));
}

TEST_P(FileSystemConformance, AListingKnowsWhichFolderItIs) {
    const std::wstring folder = NewFolder(L"Folder");
    NewFile(L"Folder\\file");
    const auto reader = Files().GetFolder(At(L"folder"));
    const auto identity = reader->Identity();
    ASSERT_TRUE(identity);
    EXPECT_EQ(identity, Files().IdentityOf(folder));
    EXPECT_NE(identity, Files().IdentityOf(At(L"Folder\\file")));
    EXPECT_NE(identity, Files().GetFolder(NewFolder(L"other"))->Identity());
    EXPECT_NE(identity, Files().GetFolder(World().Root())->Identity());
    FileEntry entry;
    while (reader->Next(entry)) {
        EXPECT_EQ(entry.Name, L"file");
    }
    EXPECT_EQ(identity, reader->Identity());
}

TEST_P(FileSystemConformance, AListingStaysWithItsFolderWhateverTakesItsPlace) {
    const std::wstring folder = NewFolder(L"folder");
    NewFile(L"folder\\listed");
    NewFolder(L"other");
    NewFile(L"other\\not listed");
    const auto reader = Files().GetFolder(folder);
    World().Rename(folder, L"renamed");
    World().Rename(At(L"other"), L"folder");
    EXPECT_EQ(reader->Identity(), Files().IdentityOf(At(L"renamed")));
    EXPECT_NE(reader->Identity(), Files().IdentityOf(folder));
    FileEntry entry;
    ASSERT_TRUE(reader->Next(entry));
    EXPECT_EQ(entry.Name, L"listed");
    EXPECT_FALSE(reader->Next(entry));
}

TEST_P(FileSystemConformance, FilesAreToldApartWhateverTheirSpelling) {
    const auto identity = Files().IdentityOf(NewFile(L"File"));
    ASSERT_TRUE(identity);
    EXPECT_EQ(identity, Files().IdentityOf(At(L"FILE")));
    EXPECT_NE(identity, Files().IdentityOf(NewFile(L"other")));
}

TEST_P(FileSystemConformance, TheMachinesOwnDiskFindsFoldedNames) {
    EXPECT_TRUE(Files().FindsFoldedNames(NewFolder(L"Folder")));
    EXPECT_FALSE(Files().FindsFoldedNames(World().AbsentDrive() + L"\\"));
}

TEST_P(FileSystemConformance, AFolderThatCannotBeReachedHasNoIdentityButAReason) {
    NewFile(L"file");
    const std::wstring drive = World().AbsentDrive();
    for (const std::wstring& path : {At(L"absent"), At(L"absent\\below"), At(L"file\\below"),
                                     drive + L"\\", drive + L"\\folder", std::wstring()}) {
        EXPECT_EQ(ErrorNumber::PathNotFound, RuntimeErrorOf([&] { Files().IdentityOf(path); }))
            << testing::PrintToString(path);
    }
    EXPECT_EQ(ErrorNumber::BadFileNameOrNumber,
              RuntimeErrorOf([&] { Files().IdentityOf(At(L"a?b")); }));
}

TEST_P(FileSystemConformance, ALinkThatLeadsNowhereSaysSo) {
    if (!World().MakeLink(At(L"lost"), At(L"nowhere"), FileSystemWorld::LinkKind::ToFolder) ||
        !World().MakeLink(At(L"far"), At(L"no\\where"), FileSystemWorld::LinkKind::ToFolder)) {
        GTEST_SKIP() << "this user may not make links";
    }
    for (const wchar_t* name : {L"lost", L"far"}) {
        EXPECT_EQ(ErrorNumber::PathNotFound, RuntimeErrorOf([&] { Files().IdentityOf(At(name)); }));
    }
}

TEST_P(FileSystemConformance, AFolderIsTriedForWritingWithoutATrace) {
    EXPECT_TRUE(Files().IsWritableFolder(World().Root(), L"log"));
    EXPECT_TRUE(HasOnly(World().Root(), {}));
    EXPECT_FALSE(Files().IsWritableFolder(At(L"absent"), L"log"));
    EXPECT_FALSE(Files().IsWritableFolder(NewFile(L"file"), L"log"));
    EXPECT_FALSE(Files().IsWritableFolder(L"", L"log"));
}

TEST_P(FileSystemConformance, AFolderWhoseLogCannotBeAppendedToIsNotWritable) {
    const auto mayHold = [&] { return Files().IsWritableFolder(World().Root(), L"log"); };
    const std::wstring log = NewFile(L"log", "old");
    Files().SetAttributes(NewFile(L"other"), kAttributeReadOnly);
    Files().SetAttributes(log, kAttributeHidden);
    EXPECT_TRUE(mayHold());
    EXPECT_EQ("old", World().Read(log));
    EXPECT_EQ(kAttributeHidden, Attributes(log) & (kAttributeHidden | kAttributeArchive));
    {
        const auto lock = World().Lock(log);
        EXPECT_FALSE(mayHold());
    }
    Files().SetAttributes(log, kAttributeReadOnly);
    EXPECT_FALSE(mayHold());
    EXPECT_EQ("old", World().Read(log));
    Files().DeleteFile(log, true);
    EXPECT_TRUE(mayHold());
    NewFolder(L"log");
    EXPECT_FALSE(mayHold());
    EXPECT_TRUE(HasOnly(World().Root(), {L"log", L"other"}));
}

TEST_P(FileSystemConformance, WhatIsNoLinkMayBeFollowed) {
    for (const std::wstring& path :
         {NewFolder(L"folder"), NewFile(L"file"), At(L"absent"), At(L"absent\\below"),
          World().Root().substr(0, 3), World().AbsentDrive() + L"\\", std::wstring(),
          std::wstring(L"*?"), std::wstring(L"\\\\.\\nothing")}) {
        EXPECT_TRUE(Files().MayFollow(path)) << testing::PrintToString(path);
    }
    EXPECT_FALSE(Files().GetFile(At(L"file")).IsOfAnotherUser);
}

TEST_P(FileSystemConformance, AnotherUsersLinksAreNotFollowed) {
    using enum FileSystemWorld::LinkKind;
    const std::wstring folder = NewFolder(L"folder");
    const std::wstring file = NewFile(L"folder\\file", "12345");
    const std::wstring links[] = {At(L"to folder"), At(L"mount"), At(L"to file")};
    if (!World().MakeLink(links[0], folder, ToFolder) ||
        !World().MakeLink(links[1], folder, MountPoint) ||
        !World().MakeLink(links[2], file, ToFile)) {
        GTEST_SKIP() << "this user may not make links";
    }
    EXPECT_TRUE(Files().MayFollow(links[0]) && Files().MayFollow(links[1]));
    EXPECT_FALSE(Files().GetFile(links[2]).IsOfAnotherUser);
    for (const std::wstring& link : links) {
        if (!World().GiveAway(link)) {
            GTEST_SKIP() << "this user may not give links away";
        }
    }
    EXPECT_FALSE(Files().MayFollow(links[0]) || Files().MayFollow(links[1]));
    EXPECT_TRUE(Files().MayFollow(links[0] + L"\\file")) << "only the last part is looked at";
    EXPECT_TRUE(Files().GetFile(links[2]).IsOfAnotherUser);
    EXPECT_TRUE(Files().FindFile(links[2]).value_or(FileEntry()).IsOfAnotherUser);
    EXPECT_NE(5U, Files().GetFile(links[2]).Size) << "it is described by itself";
    EXPECT_EQ(ErrorNumber::PathFileAccessError, Copying(links[2], At(L"copy")));
    EXPECT_FALSE(Files().FileExists(At(L"copy")));
    EXPECT_EQ(std::nullopt, Deleting(links[2]));
    EXPECT_EQ("12345", World().Read(file));
}

TEST_P(FileSystemConformance, LinksToFoldersAreFollowedAndMarked) {
    NewFile(L"inside", "x");
    const std::wstring target = NewFolder(L"target");
    NewFile(L"target\\inside", "x");
    if (!World().MakeLink(At(L"link"), target, FileSystemWorld::LinkKind::ToFolder) ||
        !World().MakeLink(At(L"mount"), target, FileSystemWorld::LinkKind::MountPoint)) {
        GTEST_SKIP() << "this user may not make links";
    }
    const auto entries = List(World().Root());
    EXPECT_TRUE(entries.at(L"link").IsFolder() && entries.at(L"link").IsLink());
    EXPECT_FALSE(entries.at(L"link").IsMountPoint);
    EXPECT_TRUE(entries.at(L"mount").IsFolder() && entries.at(L"mount").IsMountPoint);
    EXPECT_EQ(Files().IdentityOf(target), Files().IdentityOf(At(L"link")));
    EXPECT_EQ(Files().IdentityOf(target), Files().IdentityOf(At(L"mount")));
    EXPECT_EQ(Files().IdentityOf(target), Files().GetFolder(At(L"link"))->Identity());
    EXPECT_EQ(Files().IdentityOf(target), Files().GetFolder(At(L"mount"))->Identity());
    EXPECT_TRUE(HasOnly(At(L"link"), {L"inside"}));
    EXPECT_EQ(1U, Files().GetFile(At(L"mount\\inside")).Size);
}

INSTANTIATE_TEST_SUITE_P(EveryWorld, FileSystemConformance, testing::ValuesIn(FileSystemWorlds()),
                         WorldName);

}  // namespace
}  // namespace ambrio
