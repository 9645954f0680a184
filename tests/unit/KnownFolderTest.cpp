#include "engine/KnownFolder.h"

#include <gtest/gtest.h>

#include "engine/SameFile.h"
#include "platform/ForwardingFileSystem.h"
#include "tests/support/CountingFileSystem.h"
#include "tests/support/FailingFileSystem.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

class KnownFolderTest : public testing::Test {
  protected:
    KnownFolderTest() {
        Files.SetVolume(L"D:", true);
        for (const wchar_t* folder : {L"C:\\One", L"C:\\Two", L"D:\\One"}) {
            Files.MakeFolder(folder);
        }
        Files.MakeLink(L"C:\\Link", L"C:\\One", MemoryFileSystem::LinkKind::MountPoint);
    }
    [[nodiscard]] static KnownFolder Through(FileSystem& files, const wchar_t* path) {
        return KnownFolder(files, path);
    }

    MemoryFileSystem Files;
    CountingFileSystem Counting{Files};
};

TEST_F(KnownFolderTest, OneFolderIsItselfWhateverItsSpelling) {
    const KnownFolder one = Through(Files, L"C:\\One");
    EXPECT_TRUE(one.Is(Through(Files, L"c:\\ONE\\")));
    EXPECT_TRUE(one.Is(Through(Files, L"C:\\Link")));
    EXPECT_FALSE(one.Is(Through(Files, L"C:\\Two")));
    EXPECT_FALSE(one.Is(Through(Files, L"D:\\One")));
}

// A link is then none of its target, but case still does not count.
TEST_F(KnownFolderTest, TheSpellingDecidesWhereOneIdentityCannotBeTold) {
    FailingFileSystem unnumbered(Files, {.Kind = FileOperation::IdentityOf, .AndAllAfter = true});
    FailingFileSystem unreachable(
        Files, {.Kind = FileOperation::IdentityOf, .AndAllAfter = true, .QuestionsThrow = true});
    for (FailingFileSystem* failing : {&unnumbered, &unreachable}) {
        const KnownFolder known = Through(Files, L"C:\\One");
        const KnownFolder unknown = Through(*failing, L"c:\\ONE");
        EXPECT_TRUE(known.Is(unknown) && unknown.Is(known));
        const KnownFolder link = Through(*failing, L"C:\\Link");
        EXPECT_FALSE(known.Is(link) || link.Is(known));
    }
}

TEST_F(KnownFolderTest, AVolumeIsElsewhereOnlyWhenBothAreKnown) {
    const KnownFolder one = Through(Files, L"C:\\One");
    EXPECT_TRUE(one.IsElsewhereThan(Through(Files, L"D:\\One")));
    EXPECT_FALSE(one.IsElsewhereThan(Through(Files, L"C:\\Two")));
    EXPECT_FALSE(one.IsElsewhereThan(Through(Files, L"D:\\Absent")));
    EXPECT_FALSE(Through(Files, L"D:\\Absent").IsElsewhereThan(one));
}

TEST_F(KnownFolderTest, AsksOnceAndOnlyWhenItMatters) {
    const KnownFolder one = Through(Counting, L"C:\\One");
    const KnownFolder absent = Through(Counting, L"C:\\Absent");
    EXPECT_TRUE(Counting.Calls().empty());
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(one.Is(absent) || absent.Is(one) || one.IsElsewhereThan(absent));
    }
    EXPECT_EQ(Counting.CallsOn(L"C:\\One"), 1);
    EXPECT_EQ(Counting.CallsOn(L"C:\\Absent"), 1);
}

TEST_F(KnownFolderTest, ARequiredIdentityFailsWithTheReason) {
    EXPECT_EQ(RuntimeErrorOf([&] { Through(Files, L"C:\\Link").RequireIdentity(); }), std::nullopt);
    EXPECT_EQ(RuntimeErrorOf([&] { Through(Files, L"C:\\Absent").RequireIdentity(); }),
              ErrorNumber::PathNotFound);
    FailingFileSystem unnumbered(Files, {.Kind = FileOperation::IdentityOf});
    EXPECT_EQ(RuntimeErrorOf([&] { Through(unnumbered, L"C:\\One").RequireIdentity(); }),
              ErrorNumber::PathFileAccessError);
}

// A mapped drive and its server's name for it lead to one path.
TEST_F(KnownFolderTest, OneFinalPathIsOneFolder) {
    Files.Node(L"C:\\").Volume.NumbersNothing = true;
    const KnownFolder one = Through(Files, L"C:\\One");
    EXPECT_TRUE(one.Is(Through(Files, L"C:\\Link")));
    EXPECT_FALSE(one.Is(Through(Files, L"C:\\Two")));
    EXPECT_FALSE(one.IsElsewhereThan(Through(Files, L"C:\\Two")));
    EXPECT_FALSE(one.IsElsewhereThan(Through(Files, L"D:\\One")));
    EXPECT_EQ(RuntimeErrorOf([&] { one.RequireIdentity(); }), ErrorNumber::PathFileAccessError);
}

TEST_F(KnownFolderTest, TwoFinalPathsMayBeOneFileAllTheSame) {
    for (const wchar_t* file : {L"C:\\One\\a", L"C:\\Two\\a"}) {
        Files.WriteFile(file);
    }
    const auto areOne = [&](const wchar_t* other) {
        return AreOneFile(Files, L"C:\\One\\a", other);
    };
    EXPECT_EQ(areOne(L"C:\\Two\\a"), std::optional(false));
    EXPECT_EQ(areOne(L"C:\\Link\\a"), std::optional(true));
    Files.Node(L"C:\\").Volume.NumbersNothing = true;
    EXPECT_EQ(areOne(L"C:\\Two\\a"), std::nullopt);
    EXPECT_EQ(areOne(L"C:\\Link\\a"), std::optional(true));
}

TEST(FileIdentityTest, TellsADiskFromItsClone) {
    const FileIdentity file{7, 8, 1};
    EXPECT_TRUE((file == FileIdentity{7, 8, 1}));
    EXPECT_FALSE((file == FileIdentity{7, 8, 2}));
    EXPECT_FALSE((file == FileIdentity{7, 9, 1}));
    EXPECT_FALSE((file == FileIdentity{6, 8, 1}));
    EXPECT_FALSE(file.MayShareVolumeWith({7, 9, 2}));
    EXPECT_TRUE(file.MayShareVolumeWith({7, 9, 1}));
}

// A server may be this machine itself.
TEST(FileIdentityTest, TakesAnUnknownDiskForAny) {
    EXPECT_TRUE((FileIdentity{7, 8, 1} == FileIdentity{7, 8}));
    EXPECT_TRUE((FileIdentity{7, 8} == FileIdentity{7, 8, 2}));
    EXPECT_FALSE((FileIdentity{7, 8} == FileIdentity{6, 8, 2}));
}

TEST(FileIdentityTest, APathIsNoNumber) {
    const FileIdentity path{0, 8, 0, true};
    EXPECT_TRUE((path == FileIdentity{0, 8, 0, true}));
    EXPECT_FALSE((path == FileIdentity{0, 9, 0, true}));
    EXPECT_FALSE((path == FileIdentity{0, 8}));
    EXPECT_TRUE(path.MayShareVolumeWith({7, 8, 1}));
    EXPECT_TRUE((FileIdentity{7, 8, 1}.MayShareVolumeWith(path)));
}

// What is asked of its listing.
class KnownByListingTest : public KnownFolderTest {
  protected:
    [[nodiscard]] static KnownFolder ByListing(FileSystem& files, const wchar_t* path) {
        return KnownFolder(files, path, KnownFolder::Asked::Listing);
    }
    static std::wstring FirstOf(const KnownFolder& folder) {
        FileEntry entry;
        return folder.GetListing()->Next(entry) ? entry.Name : L"nothing";
    }
};

TEST_F(KnownByListingTest, IsOpenedOnceForBoth) {
    Files.WriteFile(L"C:\\One\\file");
    const KnownFolder one = ByListing(Counting, L"C:\\One");
    EXPECT_TRUE(one.Is(Through(Files, L"C:\\Link")));
    EXPECT_FALSE(one.Is(Through(Files, L"C:\\Two")));
    EXPECT_EQ(FirstOf(one), L"file");
    EXPECT_EQ(Counting.CallsOf(FileOperation::GetFolder), 1);
    EXPECT_EQ(Counting.CallsOf(FileOperation::IdentityOf), 1);
    EXPECT_EQ(Files.OpenHandles(), 0);
}

TEST_F(KnownByListingTest, IsOpenedOnlyWhenOneOfBothIsWanted) {
    Files.WriteFile(L"C:\\One\\file");
    const KnownFolder one = ByListing(Counting, L"C:\\One");
    EXPECT_TRUE(Counting.Calls().empty());
    EXPECT_EQ(FirstOf(one), L"file");
    EXPECT_EQ(Counting.CallsOf(FileOperation::IdentityOf), 0);
    EXPECT_TRUE(one.Is(Through(Files, L"C:\\Link"))) << "the path is asked then";
    EXPECT_EQ(Files.OpenHandles(), 0);
}

TEST_F(KnownByListingTest, WhatIsListedIsWhatWasAskedWhateverTookItsPlace) {
    Files.WriteFile(L"C:\\One\\asked");
    Files.WriteFile(L"C:\\Two\\other");
    const KnownFolder one = ByListing(Files, L"C:\\One");
    const KnownFolder two = Through(Files, L"C:\\Two");
    EXPECT_FALSE(one.Is(two));
    Files.Rename(L"C:\\One", L"Renamed");
    Files.Rename(L"C:\\Two", L"One");
    EXPECT_FALSE(one.Is(two));
    EXPECT_EQ(FirstOf(one), L"asked");
    EXPECT_EQ(FirstOf(one), L"other") << "the first listing has been handed out";
}

// Puts another folder in the place of each as soon as it is open.
class ReplacedOnceOpen : public ForwardingFileSystem {
  public:
    explicit ReplacedOnceOpen(MemoryFileSystem& files)
        : ForwardingFileSystem(files), files_(files) {}
    std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) override {
        auto reader = files_.GetFolder(path);
        files_.Rename(path, L"Renamed");
        files_.Rename(L"C:\\Two", L"One");
        return reader;
    }

  private:
    MemoryFileSystem& files_;
};

TEST_F(KnownByListingTest, IsTheOneThatWasOpenedThoughAnotherTookItsPlaceAtOnce) {
    const KnownFolder two = Through(Files, L"C:\\Two");
    EXPECT_TRUE(two.Is(Through(Files, L"c:\\TWO\\")));
    ReplacedOnceOpen files(Files);
    const KnownFolder one = ByListing(files, L"C:\\One");
    EXPECT_FALSE(one.Is(two));
    EXPECT_TRUE(two.Is(Through(Files, L"C:\\One")));
}

TEST_F(KnownByListingTest, IsKnownByItsPathWhereItMayNotBeListed) {
    Files.Node(L"C:\\One").ListingDenied = true;
    const KnownFolder one = ByListing(Counting, L"C:\\One");
    EXPECT_TRUE(one.Is(Through(Files, L"C:\\Link")));
    EXPECT_FALSE(one.Is(Through(Files, L"C:\\Two")));
    EXPECT_EQ(Counting.CallsOn(L"C:\\One"), 2);
    Files.Node(L"C:\\One").ListingDenied = false;
    EXPECT_EQ(RuntimeErrorOf([&] { FirstOf(one); }), ErrorNumber::PermissionDenied);
    EXPECT_EQ(Counting.CallsOf(FileOperation::GetFolder), 1);
}

TEST_F(KnownByListingTest, IsKnownByItsPathOnceItIsThere) {
    const KnownFolder later = ByListing(Counting, L"C:\\One\\Later");
    const KnownFolder other = Through(Files, L"C:\\Link\\Later");
    EXPECT_TRUE(later.Is(Through(Files, L"c:\\ONE\\later"))) << "it has its spelling";
    Files.MakeFolder(L"C:\\One\\Later");
    EXPECT_TRUE(later.Is(other));
    EXPECT_EQ(Counting.CallsOf(FileOperation::GetFolder), 1);
}

TEST_F(KnownByListingTest, ItsListingIsClosedWhenNobodyWantsItAnyMore) {
    {
        const KnownFolder one = ByListing(Files, L"C:\\One");
        EXPECT_FALSE(one.Is(Through(Files, L"C:\\Two")));
        EXPECT_EQ(Files.OpenHandles(), 1);
        one.CloseListing();
        EXPECT_EQ(Files.OpenHandles(), 0);
        const KnownFolder two = ByListing(Files, L"C:\\Two");
        EXPECT_FALSE(two.Is(one));
        EXPECT_EQ(Files.OpenHandles(), 1);
        const KnownFolder unwanted = ByListing(Files, L"C:\\One");
        unwanted.CloseListing();
        EXPECT_TRUE(unwanted.Is(one));
        EXPECT_EQ(Files.OpenHandles(), 1);
    }
    EXPECT_EQ(Files.OpenHandles(), 0);
}

}  // namespace
}  // namespace ambrio
