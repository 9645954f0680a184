// Names in any script, long paths, large files.

#include <gtest/gtest.h>

#include "tests/e2e/support/Environment.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/HeldFiles.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

class WideNamesTest : public SaverTest {
  protected:
    void ExpectCopied() {
        EndByKey();
        EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(Destination())));
    }
};

TEST_F(WideNamesTest, CopiesFilesAndFoldersWithNamesInAnyScript) {
    Source.AddFile(L"\u00dcbersicht \u2013 \u00c4ra.txt", "Latin")
        .AddFile(
            L"\u0414\u043e\u043a\u0443\u043c\u0435\u043d\u0442\u044b\\\u0444\u0430\u0439\u043b.txt",
            "Cyrillic")
        .AddFile(L"\u65e5\u672c\u8a9e\\\u5199\u771f.jpg", "Japanese")
        .AddFile(L"\u0627\u0644\u0639\u0631\u0628\u064a\u0629.txt", "Arabic")
        .AddFile(L"\U0001F4C1\\\U0001F600.txt", "beyond the basic plane")
        .AddFile(L" leading blank.txt", "blank")
        .AddFile(L"comma, semicolon; [bracket] 100% & 'quote'.txt", "marks");
    WriteOneSet();
    RunToTheEnd();
    EXPECT_EQ(Panel().Caption(PanelControl::lblcopied), L"7");
    ExpectCopied();
}

TEST_F(WideNamesTest, ShowsTheNamesInThePanelAsTheyAre) {
    const std::wstring name = L"\u65e5\u672c\u8a9e & \u0420\u0443\u0441";
    const HeldFiles files;
    LoadIntoPrograms(HeldFiles::Module());
    Source.AddFile(L"\u5199\u771f\\held.bin", std::string(2U << 20U, 'h'));
    WriteOneSet(name);
    Start(L"/S");
    const PanelProbe panel = Panel();
    EXPECT_TRUE(files.WaitUntilHeld());
    EXPECT_EQ(panel.Caption(PanelControl::lblSet), name);
    EXPECT_EQ(panel.Caption(PanelControl::lblSource), Source.PathOf(L"\u5199\u771f"));
    EXPECT_EQ(panel.Caption(PanelControl::lblDest), Destination() + L"\\\u5199\u771f");
    files.GoOn();
    EndByKey();
}

TEST_F(WideNamesTest, ShowsTheNamesInTheLogInTheCodePageOfTheSystem) {
    if (GetACP() != 1252) {
        GTEST_SKIP() << "this system's code page is not Western European but " << GetACP();
    }
    Source.AddFile(L"file.txt", "file");
    WriteOneSet(L"Caf\u00E9 \u20AC \u6F22");
    RunToTheEnd();
    EndByKey();
    const std::string log = ReadFileBytes(Folder.LogFile());
    EXPECT_NE(log.find("\r\n'Caf\xE9 \x80 ?' start\r\n"), std::string::npos) << log;
}

TEST_F(WideNamesTest, CopiesTreesBeyondTheClassicPathLength) {
    std::wstring deep;
    while (deep.size() < 500) {
        deep += (deep.empty() ? L"" : L"\\") + std::wstring(50, L'd');
    }
    Source.AddFile(deep + L"\\file.txt", "deep").AddFile(std::wstring(240, L'n') + L".txt", "long");
    WriteOneSet();
    RunToTheEnd();
    EXPECT_EQ(Panel().Caption(PanelControl::lblcopied), L"2");
    ExpectCopied();
}

TEST_F(WideNamesTest, MakesADestinationOfAnyDepth) {
    Source.AddFile(L"file.txt", "file");
    std::wstring deep = Folder.Below(L"Deep");
    while (deep.size() < 400) {
        deep += L"\\" + std::wstring(50, L'd');
    }
    Settings.WriteSets({{L"Documents", Source.Root(), deep}});
    RunToTheEnd();
    EndByKey();
    EXPECT_TRUE(SameTree(ReadTree(Source.Root()), ReadTree(deep)));
}

TEST_F(WideNamesTest, CopiesAFileBeyondFourGigabytes) {
    if (TextFromEnvironment(L"AMBRIO_LARGE_FILES").empty()) {
        GTEST_SKIP() << "takes nine gigabytes and a minute: set AMBRIO_LARGE_FILES to have it run";
    }
    constexpr LONGLONG kSize = (LONGLONG{4} << 30U) + 5;
    {
        const UniqueHandle file =
            OpenFile(Source.PathOf(L"large.bin"), GENERIC_WRITE, 0, CREATE_ALWAYS);
        const LARGE_INTEGER end{.QuadPart = kSize};
        ASSERT_NE(SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN), 0);
        ASSERT_NE(SetEndOfFile(file.get()), 0);
    }
    WriteOneSet();
    Start(L"/S");
    const PanelProbe panel = Panel();
    EXPECT_TRUE(WaitUntil([&] { return panel.ShowsTheEndOfTheRun(); }, Milliseconds(300'000)));
    EndByKey();
    const UniqueHandle copy =
        OpenFile(Destination() + L"\\large.bin", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    LARGE_INTEGER size{};
    EXPECT_NE(GetFileSizeEx(copy.get(), &size), 0);
    EXPECT_EQ(size.QuadPart, kSize);
}

}  // namespace
}  // namespace ambrio::e2e
