// The about box's way to the web page, through whatever program belongs to ".htm" files; and the
// help's, where the system has no viewer for it.

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <vector>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/CurrentFolder.h"
#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/FolderRights.h"
#include "tests/e2e/support/TestTree.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

constexpr const wchar_t* kType = L"Ambrio.TestPage";

std::wstring AddressOfFile(const std::wstring& path) {
    std::wstring address = L"file:///";
    for (const wchar_t c : path) {
        address += c == L'\\' ? L"/" : c == L' ' ? L"%20" : std::wstring(1, c);
    }
    return address;
}

class WebPageTest : public DialogTest {
  protected:
    // Pages are of a type that nothing opens yet.
    WebPageTest() {
        WriteFileBytes(page_, "page");
        TakeOver(L"Software\\Classes\\");
        // Where a user's own types do not count, the machine's are put aside too.
        wchar_t seen[64] = L"";
        LONG size = sizeof seen;
        RegQueryValueW(HKEY_CLASSES_ROOT, L".htm", seen, &size);
        const std::wstring machine = std::wstring(kMachine) + L"SOFTWARE\\Classes\\";
        if (std::wstring(seen) != kType && MayChangeKey(machine + L".htm")) {
            TakeOver(machine);
        }
    }

    // Makes the file the program that opens pages.
    void SetBrowser(const std::wstring& program) {
        WriteText(classes_ + kType + L"\\shell\\open\\command", L"",
                  L"\"" + program + L"\" \"%1\"");
    }
    // What the system says that opens pages; empty when it names nothing.
    [[nodiscard]] std::wstring Browser() const {
        const std::wstring page = Folder.Below(L"page.htm");
        WriteFileBytes(page, "page");
        std::array<wchar_t, MAX_PATH + 1> program = {};
        const auto found =
            reinterpret_cast<INT_PTR>(FindExecutableW(page.c_str(), L"", program.data()));
        return found > 32 ? program.data() : L"";
    }
    [[nodiscard]] WindowProbe OpenAbout() {
        configuration_ = OpenConfiguration();
        return Open(*configuration_, IDC_CMD_ABOUT, L"About Ambrio");
    }
    void CloseAll(const WindowProbe& about) {
        EXPECT_TRUE(Closes(about, IDOK));
        EXPECT_TRUE(ClosesByItsBox(*configuration_));
        EXPECT_TRUE(Ends());
    }
    // Makes the stand-in the program that opens pages; skips the test where that is refused.
    void InstallBrowser() {
        WriteFileBytes(browser_, ReadFileBytes(TestProgramFolder() + L"\\StandInSaver.scr"));
        SetBrowser(browser_);
        if (Browser() != browser_) {
            GTEST_SKIP() << "this system does not take another browser";
        }
    }
    // Presses the button and expects the browser to get the address.
    void ExpectOpened(const WindowProbe& dialog, int button = IDC_CMD_WWW) {
        Press(dialog, button);
        EXPECT_TRUE(WaitUntil([] { return ReadText(kStandInKey, kSaverCommandLine).has_value(); }));
        const std::wstring line = ReadText(kStandInKey, kSaverCommandLine).value_or(L"");
        EXPECT_TRUE(line.ends_with(address_)) << Utf8(line);
        EXPECT_FALSE(MessageBoxProbe::Find(Program().ProcessId()));
    }
    // The first box says what failed, the second what that means for the user.
    void ExpectBoxes(const std::wstring& title, const std::wstring& text) {
        const MessageBoxProbe first = WaitForBox();
        EXPECT_EQ(first.Title(), title);
        EXPECT_EQ(first.Text(), text);
        EXPECT_EQ(first.Icon(), BoxIcon::Exclamation);
        EXPECT_TRUE(first.Press());
        const MessageBoxProbe second = WaitForBox();
        EXPECT_EQ(second.Title(), L"Internet");
        EXPECT_TRUE(second.Text().starts_with(
            L"There seems to be problem finding or running your web browser."));
        EXPECT_TRUE(second.Text().ends_with(page_)) << Utf8(second.Text());
        EXPECT_TRUE(second.Press());
        EXPECT_FALSE(MessageBoxProbe::Find(Program().ProcessId()));
    }

    const std::wstring browser_ = Folder.Below(L"The browser.exe");
    // The page beside the program, and what a browser is given for it.
    const std::wstring page_ = Folder.Below(L"Ambrio.html");
    const std::wstring address_ = AddressOfFile(page_);

  private:
    void TakeOver(const std::wstring& classes) {
        classes_ = classes;
        for (const wchar_t* name : {L".htm", kType}) {
            guards_.push_back(std::make_unique<RegistryTreeGuard>(classes + name));
        }
        WriteText(classes + L".htm", L"", kType);
    }

    const RegistryTreeGuard standIn_{kStandInKey};
    std::vector<std::unique_ptr<RegistryTreeGuard>> guards_;
    std::wstring classes_;
    std::optional<WindowProbe> configuration_;
};

TEST_F(WebPageTest, NoBrowserIsAssociated) {
    if (!Browser().empty()) {
        GTEST_SKIP() << "this system does not let go of its browser";
    }
    const WindowProbe about = OpenAbout();
    Press(about, IDC_CMD_WWW);
    ExpectBoxes(L"Browser Not Found", L"Could not find associated Browser");
    EXPECT_TRUE(about.IsEnabled());
    CloseAll(about);
    EXPECT_FALSE(FileExists(L"~temp.htm"));
}

TEST_F(WebPageTest, TheAssociatedBrowserGetsTheAddress) {
    InstallBrowser();
    if (IsSkipped()) {
        return;
    }
    const WindowProbe about = OpenAbout();
    ExpectOpened(about);
    CloseAll(about);
    EXPECT_FALSE(FileExists(L"~temp.htm"));
}

TEST_F(WebPageTest, APageThatIsNotThereIsTold) {
    InstallBrowser();
    if (IsSkipped()) {
        return;
    }
    ASSERT_NE(DeleteFileW(page_.c_str()), 0);
    const WindowProbe about = OpenAbout();
    Press(about, IDC_CMD_WWW);
    const MessageBoxProbe box = WaitForBox();
    EXPECT_EQ(box.Title(), L"Ambrio");
    EXPECT_EQ(box.Text(), page_ + L"\r\nFile not found");
    EXPECT_EQ(box.Icon(), BoxIcon::Exclamation);
    EXPECT_TRUE(box.Press());
    CloseAll(about);
    EXPECT_FALSE(ReadText(kStandInKey, kSaverCommandLine).has_value());
}

// While it lives, the system has what newer ones have in the place of their viewer for help: a
// small file that shows none. Not where the viewer cannot be put aside.
class NoViewer {
  public:
    NoViewer() {
        isPutAside_ = MoveFileExW(viewer_.c_str(), aside_.c_str(), 0) != 0;
        if (isPutAside_) {
            WriteFileBytes(viewer_, std::string(10'000, 'x'));
        }
    }
    ~NoViewer() {
        if (isPutAside_) {
            DeleteFileW(viewer_.c_str());
            EXPECT_NE(MoveFileExW(aside_.c_str(), viewer_.c_str(), 0), 0);
        }
    }
    NoViewer(const NoViewer&) = delete;
    NoViewer& operator=(const NoViewer&) = delete;

    [[nodiscard]] bool IsSo() const {
        WIN32_FILE_ATTRIBUTE_DATA facts = {};
        return GetFileAttributesExW(viewer_.c_str(), GetFileExInfoStandard, &facts) == 0 ||
               facts.nFileSizeLow < 65536;
    }

  private:
    static std::wstring InWindowsFolder(const wchar_t* name) {
        std::array<wchar_t, MAX_PATH + 1> folder = {};
        GetWindowsDirectoryW(folder.data(), MAX_PATH);
        return std::wstring(folder.data()) + L"\\" + name;
    }

    const std::wstring viewer_ = InWindowsFolder(L"winhlp32.exe");
    const std::wstring aside_ = InWindowsFolder(L"winhlp32.aside");
    bool isPutAside_ = false;
};

TEST_F(WebPageTest, TheHelpIsShownThereWithoutAViewer) {
    InstallBrowser();
    if (IsSkipped()) {
        return;
    }
    const NoViewer noViewer;
    if (!noViewer.IsSo()) {
        GTEST_SKIP() << "this system does not let its viewer go";
    }
    WriteFileBytes(Folder.Below(L"Ambrio.HLP"), "what no viewer shows");
    const WindowProbe configuration = OpenConfiguration();
    ExpectOpened(configuration, IDC_CMD_HELP);
    CloseConfiguration();
}

TEST_F(WebPageTest, TheAssociatedBrowserDoesNotStart) {
    WriteFileBytes(browser_, "no program");
    SetBrowser(browser_);
    if (Browser() != browser_) {
        GTEST_SKIP() << "this system does not take another browser";
    }
    const WindowProbe about = OpenAbout();
    Press(about, IDC_CMD_WWW);
    ExpectBoxes(L"URL Failed", L"Web Page not Opened");
    CloseAll(about);
    EXPECT_FALSE(FileExists(L"~temp.htm"));
}

// Such as the Windows folder, from which the desktop's settings start the program.
TEST_F(WebPageTest, ACurrentFolderThatCannotBeWrittenIsNoHindrance) {
    InstallBrowser();
    if (IsSkipped()) {
        return;
    }
    CurrentFolder current(Folder.Below(L"Current"));
    MakeFolders(current.Path());
    current.Enter();
    SetFolderRights(current.Path(), FILE_GENERIC_READ | FILE_GENERIC_EXECUTE);
    if (IsFolderWritable(current.Path())) {
        SetFolderRights(current.Path(), FILE_ALL_ACCESS);
        GTEST_SKIP() << "nothing is refused to this user";
    }
    const WindowProbe about = OpenAbout();
    ExpectOpened(about);
    CloseAll(about);
    SetFolderRights(current.Path(), FILE_ALL_ACCESS);
    EXPECT_FALSE(FileExists(Folder.Below(L"Temp\\~temp.htm")));
}

// So many files of the user's bear the names that the temporary one could have.
class OwnPageTest : public WebPageTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(OwnPageTest, IsNeitherOverwrittenNorRemoved) {
    InstallBrowser();
    if (IsSkipped()) {
        return;
    }
    CurrentFolder current(Folder.Below(L"Current"));
    MakeFolders(current.Path());
    current.Enter();
    const std::wstring temporary = Folder.Below(L"Temp");
    std::vector<std::wstring> own = {current.Path() + L"\\~temp.htm", temporary + L"\\~temp.htm",
                                     temporary + L"\\~temp1.htm"};
    own.resize(GetParam());
    for (const std::wstring& path : own) {
        WriteFileBytes(path, Utf8(path));
    }
    const TreeFacts before = ReadTree(current.Path());
    const TreeFacts temporaryBefore = ReadTree(temporary);
    const WindowProbe about = OpenAbout();
    ExpectOpened(about);
    CloseAll(about);
    EXPECT_TRUE(SameTree(before, ReadTree(current.Path())));
    EXPECT_TRUE(SameTree(temporaryBefore, ReadTree(temporary)));
    for (const std::wstring& path : own) {
        EXPECT_NE(DeleteFileW(path.c_str()), 0) << Utf8(path);
    }
}

INSTANTIATE_TEST_SUITE_P(OneOrMore, OwnPageTest, testing::Values(1, 2, 3));

}  // namespace
}  // namespace ambrio::e2e
