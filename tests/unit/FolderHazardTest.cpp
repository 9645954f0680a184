#include "tests/support/FailingFileSystem.h"
#include "tests/unit/HazardFixture.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;

class FolderHazard : public HazardTest {};

TEST_F(FolderHazard, SourceAndDestinationAreTheSame) {
    Point(L"C:\\Data", L"c:\\DATA\\");
    for (const wchar_t* type : {kCopyTypeDateTime, kCopyTypeArchiveBit, kCopyTypeReadOnly}) {
        Bench.Set(L"S", kCopyTypeKey, type);
        Bench.Set(L"S", kDeleteCopyArchiveBitKey, kYes);
        Bench.Set(L"S", kDeleteCopyReadOnlyKey, kYes);
        Bench.Set(L"S", kClearArchiveBitKey, kYes);
        File(L"C:\\Data\\a");
        Bench.Files.WriteFile(L"C:\\Data\\Sub\\b", "y", kAttributeReadOnly);
        const Lines before = Bench.Files.Snapshot(L"C:\\Data");
        Run();
        EXPECT_EQ(Bench.Files.Snapshot(L"C:\\Data"), before) << testing::PrintToString(type);
        EXPECT_EQ(Bench.State.FilesChecked, 2);
        EXPECT_EQ(Bench.State.FilesCopied, 0);
    }
}

TEST_F(FolderHazard, TheDestinationLiesInTheSource) {
    Point(L"C:\\Data", L"C:\\Data\\Backup");
    File(L"C:\\Data\\a", "1");
    File(L"C:\\Data\\Sub\\b", "2");
    Run();
    EXPECT_EQ(Content(L"C:\\Data\\Backup\\a"), "1");
    EXPECT_EQ(Content(L"C:\\Data\\Backup\\Sub\\b"), "2");
    EXPECT_FALSE(Bench.Files.FolderExists(L"C:\\Data\\Backup\\Backup"));
    ExpectNothingMoreToCopy();
}

TEST_F(FolderHazard, TheSourceLiesInTheDestination) {
    Point(L"C:\\Data\\Sub", L"C:\\Data");
    File(L"C:\\Data\\Sub\\a", "1");
    File(L"C:\\Data\\Sub\\Deep\\b", "2");
    Run();
    EXPECT_EQ(Content(L"C:\\Data\\a"), "1");
    EXPECT_EQ(Content(L"C:\\Data\\Deep\\b"), "2");
    EXPECT_FALSE(Bench.State.HasFailures());
    ExpectNothingMoreToCopy();
}

// What lies in "C:\Data\Sub\Sub" belongs into "C:\Data\Sub", which holds the user's own files.
TEST_F(FolderHazard, TheCopiesOfASubfolderWouldReplaceTheSource) {
    Point(L"C:\\Data\\Sub", L"C:\\Data");
    for (const bool identitiesAreKnown : {true, false}) {
        File(L"C:\\Data\\Sub\\a", "own", 13'300'000'000);
        File(L"C:\\Data\\Sub\\Sub\\a", "other", 13'400'000'000);
        File(L"C:\\Data\\Sub\\Tail\\b", "tail");
        FailingFileSystem files(Bench.Files, {.At = identitiesAreKnown ? 1'000 : 1,
                                              .Kind = FileOperation::IdentityOf,
                                              .AndAllAfter = true});
        Run(files);
        EXPECT_EQ(Content(L"C:\\Data\\Sub\\a"), "own");
        EXPECT_EQ(Content(L"C:\\Data\\a"), "own");
        EXPECT_EQ(Content(L"C:\\Data\\Tail\\b"), "tail");
        EXPECT_EQ(Bench.State.FolderErrors, 1);
        EXPECT_TRUE(Bench.HasLog({L"Error 75 - Path/File access error while accessing folder ",
                                  L"      <C:\\Data\\Sub\\Sub>"}));
        Bench.Files.Remove(L"C:\\Data");
    }
}

TEST_F(FolderHazard, LinksFormACycle) {
    File(L"C:\\Data\\One\\a");
    File(L"C:\\Data\\Two\\b");
    using enum MemoryFileSystem::LinkKind;
    Bench.Files.MakeLink(L"C:\\Data\\One\\ToTwo", L"C:\\Data\\Two", ToFolder);
    Bench.Files.MakeLink(L"C:\\Data\\Two\\ToOne", L"C:\\Data\\One", MountPoint);
    Run();
    EXPECT_EQ(Content(L"C:\\Copies\\One\\a") + Content(L"C:\\Copies\\Two\\b"), "xx");
    EXPECT_EQ(Content(L"C:\\Copies\\One\\ToTwo\\b"), "x");
    EXPECT_FALSE(Bench.Files.FolderExists(L"C:\\Copies\\One\\ToTwo\\ToOne\\ToTwo"));
    EXPECT_FALSE(Bench.State.HasFailures());
}

TEST_F(FolderHazard, AFolderMayNotBeListed) {
    File(L"C:\\Data\\Closed\\a");
    File(L"C:\\Data\\Open\\b");
    Bench.Files.Node(L"C:\\Data\\Closed").ListingDenied = true;
    Run();
    EXPECT_EQ(Content(L"C:\\Copies\\Open\\b"), "x");
    EXPECT_EQ(Bench.State.FolderErrors, 1);
    EXPECT_TRUE(Bench.HasLog(
        {L"Error 70 - Permission denied while accessing folder ", L"      <C:\\Data\\Closed>"}));
}

class VanishingDrive : public FolderHazard, public testing::WithParamInterface<const wchar_t*> {};

// Every later file and folder says so, and nothing that is there is harmed.
TEST_P(VanishingDrive, IsReportedAndLosesNothing) {
    const std::wstring drive = GetParam();
    Bench.Files.SetVolume(L"D:", true);
    Bench.Files.SetVolume(L"E:", true);
    Point(L"D:\\Data", L"E:\\Copies");
    for (const wchar_t* name : {L"1", L"2", L"3", L"Sub\\4"}) {
        File(std::wstring(L"D:\\Data\\") + name, "new");
        File(std::wstring(L"E:\\Copies\\") + name, "old", 13'300'000'000);
    }
    Bench.AddSet(L"T", L"C:\\More", L"C:\\MoreCopies");
    File(L"C:\\More\\5");
    Bench.Files.BeforeRename = [&, done = false]() mutable {
        if (!std::exchange(done, true)) {
            Bench.Files.SetVolume(drive, false);
        }
    };
    Run();
    EXPECT_TRUE(Bench.Signals.Interrupted || Bench.State.HasFailures());
    EXPECT_FALSE(Bench.Log().empty());
    EXPECT_EQ(Bench.Files.OpenHandles(), 0);
    Bench.Files.SetVolume(drive, true);
    for (const wchar_t* name : {L"1", L"2", L"3", L"Sub\\4"}) {
        EXPECT_EQ(Content(std::wstring(L"D:\\Data\\") + name), "new");
        const std::string copy = Content(std::wstring(L"E:\\Copies\\") + name);
        EXPECT_TRUE(copy == "new" || copy == "old") << copy;
    }
    Bench.Signals = {};
    Run();
    for (const wchar_t* name : {L"1", L"2", L"3", L"Sub\\4"}) {
        EXPECT_EQ(Content(std::wstring(L"E:\\Copies\\") + name), "new");
    }
    EXPECT_EQ(Content(L"C:\\MoreCopies\\5"), "x");
}

INSTANTIATE_TEST_SUITE_P(OfTheSourceAndOfTheCopies, VanishingDrive, testing::Values(L"D:", L"E:"),
                         [](const auto& drive) {
                             return drive.param[0] == L'D' ? "Source" : "Copies";
                         });

// The other program comes by while this one has its first copy ready to be renamed, and takes that
// for the leftover of a killed run. This one then says that the copy failed; the other has made it.
TEST_F(FolderHazard, TwoProgramsRunTheSameSetAtOnce) {
    const Lines names = {L"1", L"2", L"3"};
    for (const std::wstring& name : names) {
        File(L"C:\\Data\\" + name, "new");
        File(L"C:\\Copies\\" + name, "old", 13'300'000'000);
    }
    EngineBench other;
    Bench.Files.BeforeRename = [&, done = false]() mutable {
        if (std::exchange(done, true)) {
            return;
        }
        Bench.Files.ProcessId = 2;
        RunDriver driver(other.App, Bench.Files, Bench.Settings, other.Time, other.Panel,
                         other.Host, other.Signals);
        driver.DoTheBiz();
        other.State = driver.State();
        Bench.Files.ProcessId = 1;
    };
    Run();
    EXPECT_EQ(other.State.FilesCopied, 3);
    EXPECT_FALSE(other.State.HasFailures());
    EXPECT_EQ(Bench.State.CopyErrors, 1);
    EXPECT_TRUE(Bench.HasLog({L"Error 53 - File not found while copying ", L"      <C:\\Data\\1>",
                              L"   to <C:\\Copies\\1>"}));
    for (const std::wstring& name : names) {
        EXPECT_EQ(Content(L"C:\\Copies\\" + name), "new");
    }
    EXPECT_EQ(Bench.Files.Snapshot(L"C:\\Copies").size(), names.size());
}

// Whoever swaps it between two files must not make the run remove the files themselves.
TEST_F(FolderHazard, TheDestinationIsALinkThatIsTurnedToTheSourceMeanwhile) {
    Bench.Set(L"S", kCopyTypeKey, kCopyTypeArchiveBit);
    Bench.Set(L"S", kDeleteCopyArchiveBitKey, kYes);
    Bench.Files.MakeLink(L"C:\\Copies", L"C:\\Elsewhere", MemoryFileSystem::LinkKind::ToFolder);
    for (const std::wstring name : {L"1", L"2"}) {
        Bench.Files.WriteFile(L"C:\\Data\\" + name, "only this", 0);
        Bench.Files.WriteFile(L"C:\\Elsewhere\\" + name, "copy", 0);
    }
    Bench.Host.OnDoEvents = [this](int) {
        if (Bench.Panel.Caption(PanelLabel::lblRemoved) == L"1") {
            Bench.Files.Node(L"C:\\Copies").LinkTarget = L"C:\\Data";
        }
    };
    Run();
    EXPECT_EQ(Content(L"C:\\Data\\2"), "only this");
    EXPECT_EQ(Content(L"C:\\Elsewhere\\1"), "none");
    EXPECT_EQ(Bench.State.CopiesRemoved, 1);
}

}  // namespace
}  // namespace ambrio
