#include "engine/FolderGuard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "platform/ForwardingFileSystem.h"
#include "settings/SettingKeys.h"
#include "tests/support/CountingFileSystem.h"
#include "tests/support/EngineBench.h"
#include "tests/support/FailingFileSystem.h"

namespace ambrio {
namespace {

using enum MemoryFileSystem::LinkKind;

// Whole runs over trees in which a careless walk would never end.
class FolderGuardTest : public testing::Test {
  protected:
    void Run(const std::wstring& source, const std::wstring& destination) {
        Bench.AddSet(L"S", source, destination);
        Bench.Run();
        EXPECT_FALSE(Bench.State.HasFailures());
    }
    void File(const std::wstring& path) { Bench.Files.WriteFile(path, "x"); }
    [[nodiscard]] bool Exists(const std::wstring& path) {
        return Bench.Files.FileExists(path) || Bench.Files.FolderExists(path);
    }

    EngineBench Bench;
};

TEST_F(FolderGuardTest, ADestinationInsideTheSourceIsNotWalked) {
    File(L"C:\\Data\\a");
    File(L"C:\\Data\\Sub\\b");
    for (int run = 0; run < 2; ++run) {
        Run(L"C:\\Data", L"c:\\data\\sub\\BACKUP");
        EXPECT_TRUE(Exists(L"C:\\Data\\Sub\\Backup\\a"));
        EXPECT_TRUE(Exists(L"C:\\Data\\Sub\\Backup\\Sub\\b"));
        EXPECT_FALSE(Exists(L"C:\\Data\\Sub\\Backup\\Sub\\Backup"));
    }
}

TEST_F(FolderGuardTest, ADestinationThatALinkLeadsToIsNotWalked) {
    File(L"C:\\Data\\a");
    Bench.Files.MakeFolder(L"C:\\Backup");
    Bench.Files.MakeLink(L"C:\\Data\\Link", L"C:\\Backup", MountPoint);
    Run(L"C:\\Data", L"C:\\Backup");
    EXPECT_TRUE(Exists(L"C:\\Backup\\a"));
    EXPECT_FALSE(Exists(L"C:\\Backup\\Link"));
}

TEST_F(FolderGuardTest, ALinkToAFolderBeingFilledIsNotWalked) {
    Bench.Files.MakeFolder(L"C:\\Data\\Sub");
    Bench.Files.MakeFolder(L"C:\\Backup\\Sub");
    Bench.Files.MakeLink(L"C:\\Data\\Sub\\Link", L"C:\\Backup\\Sub", ToFolder);
    Run(L"C:\\Data", L"C:\\Backup");
    EXPECT_FALSE(Exists(L"C:\\Backup\\Sub\\Link"));
}

// Before the run the link leads nowhere.
TEST_F(FolderGuardTest, ALinkToAFolderThatTheWalkHasMadeIsNotWalked) {
    File(L"C:\\Data\\Sub\\a");
    Bench.Files.MakeLink(L"C:\\Data\\Sub\\Link", L"C:\\Backup\\Sub", ToFolder);
    Run(L"C:\\Data", L"C:\\Backup");
    EXPECT_TRUE(Exists(L"C:\\Backup\\Sub\\a"));
    EXPECT_FALSE(Exists(L"C:\\Backup\\Sub\\Link"));
}

TEST_F(FolderGuardTest, ALinkThatLeadsBackToAFolderBeingWalkedIsNotWalked) {
    File(L"C:\\Data\\Sub\\a");
    Bench.Files.MakeLink(L"C:\\Data\\Sub\\Up", L"C:\\Data", MountPoint);
    Bench.Files.MakeLink(L"C:\\Data\\Sub\\Here", L"C:\\Data\\Sub", ToFolder);
    Run(L"C:\\Data", L"C:\\Backup");
    EXPECT_TRUE(Exists(L"C:\\Backup\\Sub\\a"));
    EXPECT_FALSE(Exists(L"C:\\Backup\\Sub\\Up") || Exists(L"C:\\Backup\\Sub\\Here"));
}

TEST_F(FolderGuardTest, OtherLinksToFoldersAreFollowed) {
    File(L"C:\\Other\\a");
    Bench.Files.MakeFolder(L"C:\\Data");
    Bench.Files.MakeLink(L"C:\\Data\\One", L"C:\\Other", MountPoint);
    Bench.Files.MakeLink(L"C:\\Data\\Two", L"C:\\Other", ToFolder, kAttributeHidden);
    Run(L"C:\\Data", L"C:\\Backup");
    EXPECT_TRUE(Exists(L"C:\\Backup\\One\\a") && Exists(L"C:\\Backup\\Two\\a"));
}

TEST_F(FolderGuardTest, TheSystemsCompatibilityJunctionsAreNotWalked) {
    File(L"C:\\Music\\a");
    Bench.Files.MakeFolder(L"C:\\Data");
    Bench.Files.MakeLink(L"C:\\Data\\My Music", L"C:\\Music", MountPoint,
                         kAttributeHidden | kAttributeSystem);
    Run(L"C:\\Data", L"C:\\Backup");
    EXPECT_FALSE(Exists(L"C:\\Backup\\My Music"));
}

TEST_F(FolderGuardTest, ABrokenLinkIsReported) {
    Bench.Files.MakeFolder(L"C:\\Data");
    Bench.Files.MakeLink(L"C:\\Data\\Gone", L"C:\\Nowhere", ToFolder);
    Bench.AddSet(L"S", L"C:\\Data", L"C:\\Backup");
    Bench.Run();
    EXPECT_TRUE(Bench.HasLog(
        {L"Error 76 - Path not found while accessing folder ", L"      <C:\\Data\\Gone>"}));
    EXPECT_EQ(Bench.State.FolderErrors, 1);
}

// No listing is opened for that.
TEST_F(FolderGuardTest, ALinkThatCannotBeReachedIsReportedWithItsOwnReason) {
    Bench.Files.SetVolume(L"E:", true);
    Bench.Files.MakeFolder(L"C:\\Data");
    Bench.Files.MakeFolder(L"E:\\Far");
    Bench.Files.MakeLink(L"C:\\Data\\Link", L"E:\\Far", MountPoint);
    Bench.Files.SetVolume(L"E:", true, false);
    Bench.AddSet(L"S", L"C:\\Data", L"C:\\Backup");
    CountingFileSystem counting(Bench.Files);
    Bench.Run(counting, Bench.Settings);
    EXPECT_TRUE(Bench.HasLog(
        {L"Error 71 - Disk not ready while accessing folder ", L"      <C:\\Data\\Link>"}));
    EXPECT_EQ(Bench.State.FolderErrors, 1);
    const auto listed = [&](const FileCall& call) {
        return call.Operation == FileOperation::GetFolder && call.Path == L"C:\\Data\\Link";
    };
    EXPECT_EQ(std::count_if(counting.Calls().begin(), counting.Calls().end(), listed), 0);
}

TEST_F(FolderGuardTest, AWalkEndsAlsoWhereIdentitiesCannotBeTold) {
    File(L"C:\\Data\\a");
    Bench.Files.MakeFolder(L"C:\\Data\\Backup");
    Bench.Files.MakeLink(L"C:\\Data\\Up", L"C:\\Data", MountPoint);
    Bench.AddSet(L"S", L"C:\\Data", L"C:\\Data\\Backup");
    FailingFileSystem files(Bench.Files, {.Kind = FileOperation::IdentityOf, .AndAllAfter = true});
    Bench.Run(files, Bench.Settings);
    EXPECT_TRUE(Exists(L"C:\\Data\\Backup\\a"));
    EXPECT_FALSE(Exists(L"C:\\Data\\Backup\\Backup"));
    EXPECT_FALSE(Exists(L"C:\\Data\\Backup\\Up"));
    EXPECT_TRUE(Bench.HasLog(
        {L"Error 75 - Path/File access error while accessing folder ", L"      <C:\\Data\\Up>"}));
}

TEST_F(FolderGuardTest, AsksForNoIdentityBelowTheRootsOnDifferentVolumes) {
    Bench.Files.SetVolume(L"D:", true);
    for (int i = 0; i < 20; ++i) {
        File(L"C:\\Data\\" + std::to_wstring(i) + L"\\a");
    }
    Bench.AddSet(L"S", L"C:\\Data", L"D:\\Backup");
    CountingFileSystem counting(Bench.Files);
    Bench.Run(counting, Bench.Settings);
    EXPECT_EQ(counting.CallsOf(FileOperation::IdentityOf), 2);
}

// Each opening is six conversations with a server, where there is one.
TEST_F(FolderGuardTest, OpensASubfolderAndItsCopyOnceEach) {
    for (int i = 0; i < 20; ++i) {
        File(L"C:\\Data\\" + std::to_wstring(i) + L"\\a");
        Bench.Files.MakeFolder(L"C:\\Backup\\" + std::to_wstring(i));
    }
    Bench.AddSet(L"S", L"C:\\Data", L"C:\\Backup");
    CountingFileSystem counting(Bench.Files);
    Bench.Run(counting, Bench.Settings);
    EXPECT_EQ(counting.CallsOf(FileOperation::GetFolder), 2 + 2 * 20);
    EXPECT_EQ(counting.CallsOf(FileOperation::IdentityOf), 2 + 2 * 20);
    const auto& calls = counting.Calls();
    for (auto call = calls.begin(); call != calls.end(); ++call) {
        if (call->Operation == FileOperation::IdentityOf &&
            call->Path.find_last_of(L"0123456789") != std::wstring::npos) {
            EXPECT_EQ(std::prev(call)->Operation, FileOperation::GetFolder);
            EXPECT_EQ(std::prev(call)->Path, call->Path);
        }
    }
}

// An interrupted run lists no destination any more, and goes on with the folders that are left.
TEST_F(FolderGuardTest, KeepsNothingOpenBelowAFolderThatIsNotListed) {
    const std::wstring deep = L"\\2\\Sub\\Sub\\Sub";
    File(L"C:\\Data\\1\\a");
    File(L"C:\\Data" + deep + L"\\b");
    Bench.Files.MakeFolder(L"C:\\Backup" + deep);
    int open = 0;
    Bench.Host.OnDoEvents = [&](int) {
        Bench.Signals.Interrupted = true;
        open = Bench.Files.OpenHandles();
    };
    Bench.AddSet(L"S", L"C:\\Data", L"C:\\Backup");
    Bench.Run();
    EXPECT_TRUE(Exists(L"C:\\Backup" + deep + L"\\b"));
    EXPECT_EQ(open, 1) << "the listing of the folder in hand";
}

// A folder that is swapped for the Set's own destination behind the guard's back.
TEST_F(FolderGuardTest, NoFolderComesBetweenTheGuardAndTheListing) {
    class Swaps : public ForwardingFileSystem {
      public:
        explicit Swaps(MemoryFileSystem& files) : ForwardingFileSystem(files), files_(files) {}
        bool FolderExists(const std::wstring& path) override {
            if (path == L"C:\\Data\\Sub") {
                files_.Remove(path);
                files_.MakeLink(path, L"C:\\Backup", ToFolder);
            }
            return ForwardingFileSystem::FolderExists(path);
        }

      private:
        MemoryFileSystem& files_;
    };
    Bench.Files.MakeFolder(L"C:\\Data\\Sub");
    Bench.Files.MakeFolder(L"C:\\Backup\\Sub");
    File(L"C:\\Backup\\other");
    Bench.AddSet(L"S", L"C:\\Data", L"C:\\Backup");
    Swaps files(Bench.Files);
    Bench.Run(files, Bench.Settings);
    EXPECT_FALSE(Exists(L"C:\\Backup\\Sub\\other"));
    EXPECT_FALSE(Bench.State.HasFailures());
}

TEST_F(FolderGuardTest, ALinkToTheDestinationsVolumeIsWalkedUpToTheDestination) {
    Bench.Files.SetVolume(L"D:", true);
    File(L"D:\\Store\\a");
    Bench.Files.MakeFolder(L"D:\\Store\\Backup");
    Bench.Files.MakeFolder(L"C:\\Data");
    Bench.Files.MakeLink(L"C:\\Data\\Link", L"D:\\Store", MountPoint);
    Run(L"C:\\Data", L"D:\\Store\\Backup");
    EXPECT_TRUE(Exists(L"D:\\Store\\Backup\\Link\\a"));
    EXPECT_FALSE(Exists(L"D:\\Store\\Backup\\Link\\Backup"));
}

// As a mapped drive and the server's own name for it.
TEST_F(FolderGuardTest, ADestinationInsideTheSourceIsFoundByItsFinalPathWhereNothingIsNumbered) {
    Bench.Files.Node(L"C:\\").Volume.NumbersNothing = true;
    File(L"C:\\Data\\a");
    Bench.Files.MakeFolder(L"C:\\Data\\Backup");
    Bench.Files.MakeLink(L"C:\\Other name", L"C:\\Data", MountPoint);
    Run(L"C:\\Data", L"C:\\Other name\\Backup");
    EXPECT_TRUE(Exists(L"C:\\Data\\Backup\\a"));
    EXPECT_FALSE(Exists(L"C:\\Data\\Backup\\Backup"));
}

// What another user's link leads to, or has filled, is not what this user meant.
class LinkOfAnotherUserTest : public testing::Test {
  protected:
    using Kind = MemoryFileSystem::LinkKind;

    LinkOfAnotherUserTest() { Bench.AddSet(L"S", L"C:\\From", L"C:\\To"); }

    void Link(const std::wstring& path, const std::wstring& target, Kind kind) {
        Bench.Files.MakeLink(path, target, kind);
        Bench.Files.Node(path).IsOfAnotherUser = true;
    }
    void RunToError(const std::wstring& action, const std::wstring& path) {
        Bench.Files.WriteFile(L"C:\\From\\other", "x");
        Bench.Run();
        EXPECT_TRUE(Bench.HasLog({L"Error 75 - Path/File access error while " + action + L" ",
                                  L"      <" + path + L">"}));
        EXPECT_TRUE(Bench.Files.FileExists(L"C:\\To\\other"));
    }

    EngineBench Bench;
};

TEST_F(LinkOfAnotherUserTest, ToAFolderIsNotWalked) {
    Bench.Files.WriteFile(L"C:\\Secret\\a", "x");
    Link(L"C:\\From\\link", L"C:\\Secret", Kind::ToFolder);
    RunToError(L"accessing folder", L"C:\\From\\link");
    EXPECT_FALSE(Bench.Files.FolderExists(L"C:\\To\\link"));
    EXPECT_EQ(Bench.State.FolderErrors, 1);
    Bench.Files.Node(L"C:\\From\\link").IsOfAnotherUser = false;
    Bench.Run();
    EXPECT_TRUE(Bench.Files.FileExists(L"C:\\To\\link\\a"));
}

// Not even to see which folder it is: the way there may be a stranger's, too.
TEST_F(LinkOfAnotherUserTest, IsNotLookedThrough) {
    Bench.Files.MakeFolder(L"C:\\Secret");
    Bench.Files.MakeFolder(L"C:\\From");
    Link(L"C:\\From\\link", L"C:\\Secret", Kind::ToFolder);
    CountingFileSystem counting(Bench.Files);
    Bench.Run(counting, Bench.Settings);
    EXPECT_EQ(counting.CallsOn(L"C:\\From\\link"), 1);
    EXPECT_EQ(counting.CallsOn(L"C:\\To\\link"), 0);
}

TEST_F(LinkOfAnotherUserTest, InThePlaceOfTheSetsOwnFolderIsNotFollowedEither) {
    for (const wchar_t* folder : {L"C:\\From", L"C:\\To"}) {
        Bench.Files.WriteFile(L"C:\\Real from\\a", "x");
        Bench.Files.MakeFolder(L"C:\\Real to");
        Bench.Files.MakeLink(L"C:\\From", L"C:\\Real from", Kind::ToFolder);
        Bench.Files.MakeLink(L"C:\\To", L"C:\\Real to", Kind::ToFolder);
        Bench.Files.Node(folder).IsOfAnotherUser = true;
        Bench.Run();
        EXPECT_TRUE(Bench.HasLog({L"Error 75 - Path/File access error while accessing folder ",
                                  L"      <" + std::wstring(folder) + L">"}));
        EXPECT_EQ(Bench.State.FolderErrors, 1);
        EXPECT_FALSE(Bench.Files.FileExists(L"C:\\Real to\\a"));
        for (const wchar_t* made : {L"C:\\From", L"C:\\To", L"C:\\Ambrio\\Ambrio.log"}) {
            Bench.Files.Remove(made);
        }
    }
}

TEST_F(LinkOfAnotherUserTest, InTheDestinationIsNotFilled) {
    Bench.Files.WriteFile(L"C:\\From\\sub\\a", "x");
    Bench.Files.MakeFolder(L"C:\\Elsewhere");
    Link(L"C:\\To\\sub", L"C:\\Elsewhere", Kind::MountPoint);
    RunToError(L"accessing folder", L"C:\\To\\sub");
    EXPECT_FALSE(Bench.Files.FileExists(L"C:\\Elsewhere\\a"));
    EXPECT_EQ(Bench.State.FolderErrors, 1);
}

TEST_F(LinkOfAnotherUserTest, ToAFileIsNotCopied) {
    Bench.Files.WriteFile(L"C:\\Secret\\a", "x");
    Link(L"C:\\From\\link", L"C:\\Secret\\a", Kind::ToFile);
    RunToError(L"copying", L"C:\\From\\link");
    EXPECT_FALSE(Bench.Files.FileExists(L"C:\\To\\link"));
    EXPECT_EQ(Bench.State.CopyErrors, 1);
}

// Nor may it look like a file that needs no copy, or none any more.
TEST_F(LinkOfAnotherUserTest, ToAFileIsReportedWhateverItLooksLikeAndItsCopyStays) {
    Bench.Files.WriteFile(L"C:\\To\\link", "good", 0, 13'500'000'000);
    Link(L"C:\\From\\link", L"C:\\Secret\\a", Kind::ToFile);
    Bench.Files.WriteFile(L"C:\\Secret\\a", "x");
    for (const wchar_t* type : {kCopyTypeDateTime, kCopyTypeArchiveBit}) {
        Bench.Set(L"S", kCopyTypeKey, type);
        Bench.Set(L"S", kDeleteCopyArchiveBitKey, kYes);
        RunToError(L"copying", L"C:\\From\\link");
        EXPECT_EQ(Bench.State.CopyErrors, 1);
        EXPECT_EQ(Bench.State.CopiesRemoved, 0);
        EXPECT_EQ(Bench.Files.Content(L"C:\\To\\link"), "good");
        Bench.Files.Remove(EngineBench::LogFile());
    }
}

}  // namespace
}  // namespace ambrio
