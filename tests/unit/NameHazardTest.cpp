#include "tests/unit/HazardFixture.h"

#include <array>
#include <utility>
#include "tests/support/ForwardingFileSystem.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;

class NameHazard : public HazardTest {};

// A folder of a system that tells names apart by their case holds "Read" and "READ".
class TwoCases : public ForwardingFileSystem {
  public:
    using ForwardingFileSystem::ForwardingFileSystem;

    static constexpr const wchar_t* kSecond = L"C:\\Data\\READ";

    std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) override {
        class WithSecond : public ForwardingFolderReader {
          public:
            using ForwardingFolderReader::ForwardingFolderReader;
            bool Next(FileEntry& entry) override {
                if (ForwardingFolderReader::Next(entry)) {
                    return true;
                }
                entry = FileEntry();
                entry.Name = L"READ";
                return !std::exchange(isDone_, true);
            }

          private:
            bool isDone_ = false;
        };
        auto reader = ForwardingFileSystem::GetFolder(path);
        if (path == L"C:\\Data") {
            return std::make_unique<WithSecond>(std::move(reader));
        }
        return reader;
    }
    FileEntry GetFile(const std::wstring& path) override {
        return ForwardingFileSystem::GetFile(Place(path));
    }
    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override {
        ForwardingFileSystem::CopyFile(Place(source), destination, overwrite, yield);
    }

  private:
    static std::wstring Place(const std::wstring& path) {
        return path == kSecond ? L"C:\\Elsewhere\\READ" : path;
    }
};

// The destination can hold only one of them: the newest, whole, in every later run as well.
TEST_F(NameHazard, TwoNamesDifferOnlyInCase) {
    File(L"C:\\Data\\Read", "older", 13'300'000'000);
    File(L"C:\\Elsewhere\\READ", "newer", 13'400'000'000);
    TwoCases files(Bench.Files);
    for (int run = 0; run < 3; ++run) {
        Run(files);
        EXPECT_EQ(Bench.State.FilesChecked, 2);
        EXPECT_EQ(Content(L"C:\\Copies\\Read"), "newer");
        EXPECT_FALSE(Bench.State.HasFailures());
    }
    EXPECT_EQ(Content(L"C:\\Data\\Read"), "older");
}

// The first run makes the folder and knows of no copy in it but its own.
TEST_F(NameHazard, TheSecondOfTwoNamesThatDifferOnlyInCaseIsTheOlder) {
    File(L"C:\\Data\\Read", "newer", 13'400'000'000);
    File(L"C:\\Elsewhere\\READ", "older", 13'300'000'000);
    TwoCases files(Bench.Files);
    for (const int copied : {1, 0}) {
        Run(files);
        EXPECT_EQ(Bench.State.FilesCopied, copied);
        EXPECT_EQ(Content(L"C:\\Copies\\Read"), "newer");
    }
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
    EXPECT_EQ(Bench.Files.Snapshot(L"C:\\Copies").size(), 2U);  // the folder itself and one copy
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
    Bench.AddSet(L"S\r\nAmbrio completed ", L"C:\\No\nwhere\x85!\u2028!", L"C:\\Copies");
    Run();
    EXPECT_TRUE(
        Bench.HasLog({L"'S??Ambrio completed ' start", L"Error <C:\\No?where?!?!> does not exist.",
                      L"'S??Ambrio completed ' complete"}))
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
