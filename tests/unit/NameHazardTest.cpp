#include "tests/unit/HazardFixture.h"

#include <array>
#include <utility>
#include "platform/ForwardingFileSystem.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;

class NameHazard : public HazardTest {};

// Sources and copies on disks of which each may tell names apart by their case or not.
class TwoCases : public NameHazard {
  protected:
    TwoCases() {
        Bench.Files.TellCasesApart(L"S:");
        Bench.Files.TellCasesApart(L"T:");
    }
    void Write(const wchar_t* path, const char* content, FileSeconds time,
               FileAttributes attributes = kAttributeArchive) {
        Bench.Files.WriteFile(path, content, attributes, 13'300'000'000 + time);
    }
    [[nodiscard]] static Lines NotCopied(const std::wstring& name) {
        return {L"Error 58 - File already exists while copying ",
                L"      <S:\\Data\\" + name + L">", L"   to <C:\\Copies\\" + name + L">"};
    }
};

// The copy is that of the first, whatever the times, in every later run as well.
TEST_F(TwoCases, TheOneThatFindsNoPlaceIsReportedEachTime) {
    Point(L"S:\\Data", L"C:\\Copies");
    for (const FileSeconds newer : {1, 2}) {
        Bench.Files.MakeFolder(L"C:\\Copies");
        Bench.Files.Remove(L"C:\\Copies");
        Write(L"S:\\Data\\Read", "first", 3 - newer);
        Write(L"S:\\Data\\READ", "second", newer);
        for (const int copied : {1, 0, 0}) {
            Run();
            EXPECT_EQ(Bench.State.FilesChecked, 2);
            EXPECT_EQ(Bench.State.FilesCopied - Bench.State.CopyErrors, copied);
            EXPECT_EQ(Bench.State.CopyErrors, 1);
            EXPECT_TRUE(Bench.HasLog(NotCopied(L"READ")));
            EXPECT_EQ(Content(L"C:\\Copies\\Read"), "first");
        }
    }
    EXPECT_EQ(Content(L"S:\\Data\\READ"), "second");
}

TEST_F(TwoCases, ACopyBelongsToTheFileThatIsSpelledLikeIt) {
    Point(L"S:\\Data", L"C:\\Copies");
    Write(L"S:\\Data\\Read", "first", 3);
    Write(L"S:\\Data\\READ", "second", 2);
    Write(L"C:\\Copies\\READ", "old", 1);
    Run();
    EXPECT_TRUE(Bench.HasLog(NotCopied(L"Read")));
    EXPECT_EQ(Content(L"C:\\Copies\\READ"), "second");
}

TEST_F(TwoCases, NeitherTakesAwayTheCopyOfTheOther) {
    Point(L"S:\\Data", L"C:\\Copies");
    Bench.Set(L"S", kCopyTypeKey, kCopyTypeArchiveBit);
    Bench.Set(L"S", kDeleteCopyArchiveBitKey, kYes);
    Write(L"S:\\Data\\Read", "without the bit", 3, 0);
    Write(L"S:\\Data\\READ", "with it", 2);
    Write(L"C:\\Copies\\READ", "with it", 2);
    Run();
    EXPECT_EQ(Content(L"C:\\Copies\\READ"), "with it");
    EXPECT_EQ(Bench.State.CopiesRemoved, 0);
}

TEST_F(TwoCases, BothAreCopiedWhereTheyAreKeptApart) {
    Point(L"S:\\Data", L"T:\\Copies");
    Write(L"S:\\Data\\Read", "first", 1);
    Write(L"S:\\Data\\READ", "second", 2);
    Run();
    EXPECT_EQ(Content(L"T:\\Copies\\Read"), "first");
    EXPECT_EQ(Content(L"T:\\Copies\\READ"), "second");
    EXPECT_FALSE(Bench.State.HasFailures());
    ExpectNothingMoreToCopy();
    Write(L"S:\\Data\\Read", "changed", 3);
    Run();
    EXPECT_EQ(Bench.State.FilesCopied, 1);
    EXPECT_EQ(Content(L"T:\\Copies\\Read"), "changed");
    EXPECT_EQ(Content(L"T:\\Copies\\READ"), "second");
}

TEST_F(TwoCases, OfTwoFoldersTheOneThatFindsNoPlaceIsReportedEachTime) {
    Point(L"S:\\Data", L"C:\\Copies");
    Bench.Set(L"S", kRecursiveKey, kYes);
    Write(L"S:\\Data\\Pod\\same", "first", 1);
    Write(L"S:\\Data\\POD\\same", "second", 2);
    Write(L"S:\\Data\\POD\\other", "third", 3);
    for (const int copied : {1, 0}) {
        Run();
        EXPECT_EQ(Bench.State.FilesCopied, copied);
        EXPECT_EQ(Bench.State.FolderErrors, 1);
        EXPECT_TRUE(Bench.HasLog(
            {L"Error 58 - File already exists while accessing folder ", L"      <S:\\Data\\POD>"}));
        EXPECT_EQ(Content(L"C:\\Copies\\Pod\\same"), "first");
        EXPECT_EQ(Content(L"C:\\Copies\\Pod\\other"), "none");
    }
}

TEST_F(TwoCases, BothFoldersAreCopiedWhereTheyAreKeptApart) {
    Point(L"S:\\Data", L"T:\\Copies");
    Bench.Set(L"S", kRecursiveKey, kYes);
    Write(L"S:\\Data\\Pod\\same", "first", 1);
    Write(L"S:\\Data\\POD\\same", "second", 2);
    Run();
    EXPECT_EQ(Content(L"T:\\Copies\\Pod\\same"), "first");
    EXPECT_EQ(Content(L"T:\\Copies\\POD\\same"), "second");
    EXPECT_FALSE(Bench.State.HasFailures());
    ExpectNothingMoreToCopy();
    EXPECT_FALSE(Bench.State.HasFailures()) << "also when both folders are there already";
}

// A listing that keeps one of the two must not hide that the other's file has changed.
TEST_F(TwoCases, ACopyIsNotTakenForAnotherOne) {
    Point(L"C:\\Data", L"T:\\Copies");
    Write(L"C:\\Data\\READ", "changed", 2);
    Write(L"T:\\Copies\\READ", "old", 1);
    Write(L"T:\\Copies\\Read", "of somebody else", 3);
    Run();
    EXPECT_EQ(Content(L"T:\\Copies\\READ"), "changed");
    EXPECT_EQ(Content(L"T:\\Copies\\Read"), "of somebody else");
}

TEST_F(TwoCases, ACopyOfAnotherSpellingIsNoCopyWhereTheyAreKeptApart) {
    Point(L"C:\\Data", L"T:\\Copies");
    Write(L"C:\\Data\\READ", "here", 1);
    Write(L"T:\\Copies\\Read", "of somebody else", 2);
    Run();
    EXPECT_EQ(Content(L"T:\\Copies\\READ"), "here");
    EXPECT_FALSE(Bench.State.HasFailures());
}

// A server may find by other rules than ours what its listing seems not to hold.
class OtherRules : public ForwardingFileSystem {
  public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] std::wstring FoldedName(const std::wstring& name) const override { return name; }
};

TEST_F(TwoCases, ARemovalRestsOnAListingOnlyWhereThatIsSure) {
    Bench.Files.SetVolume(L"\\\\server\\share", true);
    Bench.Set(L"S", kCopyTypeKey, kCopyTypeArchiveBit);
    Bench.Set(L"S", kDeleteCopyArchiveBitKey, kYes);
    Write(L"C:\\Data\\READ", "x", 1, 0);
    for (const wchar_t* copies : {L"\\\\server\\share\\Copies", L"C:\\Copies"}) {
        Point(L"C:\\Data", copies);
        Bench.Files.WriteFile(std::wstring(copies) + L"\\read", "x");
        OtherRules files(Bench.Files);
        Run(files);
    }
    EXPECT_EQ(Content(L"\\\\server\\share\\Copies\\read"), "none");
    EXPECT_EQ(Content(L"C:\\Copies\\read"), "x");
}

constexpr std::array kNoNames = {L"..\\file", L"..\\folder", L"a/b", L"x\r\nAmbrio completed "};

// A server, or a damaged disk, whose listing holds what no name can be.
class HostileListing : public ForwardingFileSystem {
  public:
    using ForwardingFileSystem::ForwardingFileSystem;

    std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) override {
        class WithMore : public ForwardingFolderReader {
          public:
            using ForwardingFolderReader::ForwardingFolderReader;
            bool Next(FileEntry& entry) override {
                if (next_ == kNoNames.size()) {
                    return ForwardingFolderReader::Next(entry);
                }
                entry = FileEntry();
                entry.Name = kNoNames.at(next_);
                entry.Attributes = next_++ % 2 == 0 ? 0 : kAttributeDirectory;
                return true;
            }

          private:
            std::size_t next_ = 0;
        };
        auto reader = ForwardingFileSystem::GetFolder(path);
        return path == L"C:\\Data" ? std::make_unique<WithMore>(std::move(reader))
                                   : std::move(reader);
    }
};

TEST_F(NameHazard, ANameThatLeadsElsewhereIsReportedAndPassedOver) {
    File(L"C:\\file", "not to be copied");
    File(L"C:\\folder\\in it", "not to be copied either");
    File(L"C:\\Data\\plain");
    HostileListing files(Bench.Files);
    Run(files);
    EXPECT_EQ(Content(L"C:\\Copies\\plain"), "x");
    EXPECT_EQ(Bench.Files.Snapshot(L"C:\\Copies").size(), 1U);
    EXPECT_EQ(Content(L"C:\\file"), "not to be copied");
    EXPECT_EQ(Bench.State.FolderErrors, 4);
    EXPECT_EQ(Bench.State.FilesChecked, 1);
    const Lines reported = {
        L"Error 52 - Bad file name or number while accessing folder ",
        L"      <C:\\Data\\..\\file>",
        L"Error 52 - Bad file name or number while accessing folder ",
        L"      <C:\\Data\\..\\folder>",
        L"Error 52 - Bad file name or number while accessing folder ",
        L"      <C:\\Data\\a/b>",
        L"Error 52 - Bad file name or number while accessing folder ",
        L"      <C:\\Data\\x??Ambrio completed >",
    };
    EXPECT_TRUE(Bench.HasLog(reported)) << testing::PrintToString(Bench.Log());
}

TEST_F(NameHazard, ASetWhoseTextsHoldLineBreaksWritesNoLinesOfItsOwn) {
    Bench.Settings.Values.clear();
    Bench.AddSet(L"S\r\nAmbrio completed", L"C:\\No\nwhere\x85!\u2028!\u2029 \x1f\x9f\u00a0~",
                 L"C:\\Copies");
    Run();
    EXPECT_TRUE(Bench.HasLog({L"'S??Ambrio completed' start",
                              L"Error <C:\\No?where?!?!? ??\u00a0~> does not exist.",
                              L"'S??Ambrio completed' complete"}))
        << testing::PrintToString(Bench.Log());
}

TEST_F(NameHazard, NamesAreOdd) {
    const Lines names = {
        L"caf\u00e9",  L"cafe\u0301",    L"dot.",        L"dots...", L"blank ",     L" ",
        L"CON",        L"nul.txt",       L"COM1",        L"\xd800",  L"\xdc00.txt", L"%TEMP%",
        L"a;b,c='d'&", L"\u202egpj.exe", L"Stra\u00dfe", L"STRASSE", L"\u0130",     L"i\u0307"};
    for (const std::wstring& name : names) {
        File(FileSystem::BuildPath(L"C:\\Data\\" + name, name), "of the file");
    }
    Run();
    for (const std::wstring& name : names) {
        EXPECT_EQ(Content(FileSystem::BuildPath(L"C:\\Copies\\" + name, name)), "of the file")
            << testing::PrintToString(name);
    }
    EXPECT_EQ(Bench.State.FilesCopied, static_cast<int>(names.size()));
    EXPECT_FALSE(Bench.State.HasFailures());
    ExpectNothingMoreToCopy();
}

class LongPathTest : public NameHazard, public testing::WithParamInterface<std::size_t> {};

TEST_P(LongPathTest, IsCopied) {
    std::wstring below = L"\\f";
    while (below.size() + 8 < GetParam()) {
        below +=
            L"\\" + std::wstring(std::min<std::size_t>(250, GetParam() - below.size() - 8), L'n');
    }
    File(L"C:\\Data" + below, "deep");
    Run();
    EXPECT_EQ(Content(L"C:\\Copies" + below), "deep");
    EXPECT_FALSE(Bench.State.HasFailures());
    ExpectNothingMoreToCopy();
}

INSTANTIATE_TEST_SUITE_P(Lengths, LongPathTest, testing::Values(259, 260, 261, 1'000, 30'000),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace ambrio
