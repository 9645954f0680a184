// The dialog that browses for the folders of a Set, used from outside.

#include <gtest/gtest.h>

#include <optional>

#include "tests/e2e/support/CurrentFolder.h"
#include "tests/e2e/support/DialogTest.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/MappedDrive.h"

namespace ambrio::e2e {
namespace {

constexpr const wchar_t* kBrowse = L"Choose S source folder";

class BrowseTest : public DialogTest {
  protected:
    // Opens the properties of a Set with this source and browses for another.
    WindowProbe OpenFor(const std::wstring& source) {
        Settings.Write(L"S", L"Source", source);
        properties_ = OpenProperties(L"S");
        return Browse();
    }
    WindowProbe Browse() { return Open(*properties_, IDC_CMD_BROWSE_0, kBrowse); }
    [[nodiscard]] std::wstring Source() const { return TextOf(*properties_, IDC_TXT_FOLDER_0); }
    void SetSource(const std::wstring& text) { SetText(*properties_, IDC_TXT_FOLDER_0, text); }
    void Close() {
        EXPECT_TRUE(Closes(*properties_, IDCANCEL));
        CloseConfiguration();
    }
    // Chooses a drive from the list by its name.
    static void ChooseDrive(const WindowProbe& browse, const std::wstring& name) {
        const LRESULT entry = At(browse, IDC_DRIVE1)
                                  .Send(CB_FINDSTRING, static_cast<WPARAM>(-1),
                                        reinterpret_cast<LPARAM>(name.c_str()))
                                  .value_or(CB_ERR);
        ASSERT_NE(entry, CB_ERR) << "the drive is not in the list";
        Choose(browse, IDC_DRIVE1, entry);
    }
    // Makes the last row current.
    static void HighlightLast(const WindowProbe& browse) {
        const WindowProbe list = At(browse, IDC_DIR1);
        Tell(list, LB_SETCURSEL, static_cast<WPARAM>(list.Send(LB_GETCOUNT).value_or(1) - 1));
    }

    [[nodiscard]] const WindowProbe& Properties() const { return *properties_; }

  private:
    std::optional<WindowProbe> properties_;
};

TEST_F(BrowseTest, AFolderIsTheOpenOneAndCancelLeavesTheBox) {
    const std::wstring folder = Folder.Below(L"Source");
    MakeFolders(folder + L"\\Inner");
    WindowProbe browse = OpenFor(folder);
    HighlightLast(browse);
    EXPECT_TRUE(Closes(browse, IDOK));
    EXPECT_EQ(Source(), folder) << "what is only highlighted is not chosen";
    browse = Browse();
    HighlightLast(browse);
    Tell(At(browse, IDC_DIR1), WM_KEYDOWN, VK_RETURN);
    EXPECT_TRUE(Closes(browse, IDOK));
    EXPECT_EQ(Source(), folder + L"\\Inner");
    SetSource(L"typed");
    EXPECT_TRUE(Closes(Browse(), IDCANCEL));
    EXPECT_EQ(Source(), L"typed");
    Close();
}

TEST_F(BrowseTest, EachButtonFillsItsOwnBox) {
    const std::wstring source = Folder.Below(L"Source");
    const std::wstring destination = Folder.Below(L"Destination");
    MakeFolders(source + L"\\Inner");
    MakeFolders(destination + L"\\Inner");
    Settings.Write(L"S", L"Destination", destination);
    EXPECT_TRUE(Closes(OpenFor(source), IDCANCEL));
    const auto openInner = [this](int button, const wchar_t* title) {
        const WindowProbe browse = Open(Properties(), button, title);
        HighlightLast(browse);
        Tell(At(browse, IDC_DIR1), WM_KEYDOWN, VK_RETURN);
        EXPECT_TRUE(Closes(browse, IDOK));
    };
    openInner(IDC_CMD_BROWSE_1, L"Choose S destination folder");
    EXPECT_EQ(TextOf(Properties(), IDC_TXT_FOLDER_1), destination + L"\\Inner");
    EXPECT_EQ(Source(), source);
    openInner(IDC_CMD_BROWSE_0, kBrowse);
    EXPECT_EQ(Source(), source + L"\\Inner");
    EXPECT_EQ(TextOf(Properties(), IDC_TXT_FOLDER_1), destination + L"\\Inner");
    Close();
}

TEST_F(BrowseTest, ANewSetHasTwoBlanksInTheCaption) {
    const WindowProbe properties = Open(OpenConfiguration(), IDC_CMD_NEW, kNewSet);
    EXPECT_TRUE(
        Closes(Open(properties, IDC_CMD_BROWSE_1, L"Choose  destination folder"), IDCANCEL));
    EXPECT_EQ(TextOf(properties, IDC_TXT_FOLDER_1), L"F:\\My Documents");
    EXPECT_TRUE(Closes(Open(properties, IDC_CMD_BROWSE_0, L"Choose  source folder"), IDCANCEL));
    EXPECT_TRUE(Closes(properties, IDCANCEL));
    CloseConfiguration();
}

TEST_F(BrowseTest, ATextThatNamesNoFolderShowsTheCurrentOne) {
    static_cast<void>(OpenFor(FreeDriveName() + L"\\My Documents"));
    const std::wstring here = CurrentFolderPath();
    for (const std::wstring& text :
         {std::wstring(), here.substr(0, 3) + L"missing",
          std::wstring(L"\\\\localhost\\no share\\x"), here.substr(0, 3) + std::wstring(400, L'x'),
          std::wstring(L"a\"b|c:*?")}) {
        EXPECT_TRUE(Closes(WindowTitled(kBrowse), IDOK));
        EXPECT_EQ(Source(), here) << text.size();
        SetSource(text);
        static_cast<void>(Browse());
    }
    EXPECT_TRUE(Closes(WindowTitled(kBrowse), IDCANCEL));
    Close();
}

TEST_F(BrowseTest, AFolderBeyondTheClassicLimitIsReached) {
    std::wstring folder = Folder.Below(L"deep");
    while (folder.size() < 400) {
        folder += L"\\" + std::wstring(60, L'\u65e5');
    }
    MakeFolders(folder + L"\\Inner");
    const WindowProbe browse = OpenFor(folder);
    HighlightLast(browse);
    Tell(At(browse, IDC_DIR1), WM_KEYDOWN, VK_RETURN);
    EXPECT_TRUE(Closes(browse, IDOK));
    EXPECT_EQ(Source(), folder + L"\\Inner");
    Close();
}

TEST_F(BrowseTest, AnotherDriveShowsItsCurrentDirectory) {
    const std::wstring here = CurrentFolderPath();
    const MappedDrive mapped(Folder.Path());
    // The mapped drive will do where it can be entered and this process works on the drive that the
    // test's files are on.
    const bool isElsewhere = here.front() != Folder.Path().front();
    const std::wstring root = mapped.Name() + L"\\";
    if (!isElsewhere && !FolderExists(root)) {
        GTEST_SKIP() << "there is no other drive";
    }
    const WindowProbe browse = OpenFor(Folder.Path());
    ChooseDrive(browse, isElsewhere ? here.substr(0, 2) : mapped.Name());
    EXPECT_TRUE(Closes(browse, IDOK));
    EXPECT_EQ(Source(), isElsewhere ? here : root);
    Close();
}

TEST_F(BrowseTest, TheDriveIsThatOfTheFolder) {
    const bool isElsewhere = CurrentFolderPath().front() != Folder.Path().front();
    const MappedDrive mapped(Folder.Path());
    const std::wstring place = isElsewhere ? Folder.Path() : mapped.Name() + L"\\";
    if (!FolderExists(place)) {
        GTEST_SKIP() << "there is no other drive";
    }
    const WindowProbe browse = OpenFor(place);
    EXPECT_EQ(TextOf(browse, IDC_DRIVE1).substr(0, 2), place.substr(0, 2));
    EXPECT_TRUE(Closes(browse, IDOK));
    EXPECT_EQ(Source(), place);
    Close();
}

TEST_F(BrowseTest, ADriveThatIsNotReadyIsReportedAndThePreviousOneStays) {
    MakeFolders(Folder.Below(L"Drive"));
    const MappedDrive drive(Folder.Below(L"Drive"));
    RemoveTree(Folder.Below(L"Drive"));
    const WindowProbe browse = OpenFor(Folder.Path());
    const std::wstring before = TextOf(browse, IDC_DRIVE1);
    const auto rows = At(browse, IDC_DIR1).Send(LB_GETCOUNT);
    ChooseDrive(browse, drive.Name());
    const MessageBoxProbe box = WaitForBox();
    EXPECT_EQ(box.Title(), L"Ambrio");
    EXPECT_TRUE(box.Text().starts_with(L"Drive " + drive.Name() + L" cannot be opened."));
    EXPECT_EQ(box.Icon(), BoxIcon::Exclamation);
    EXPECT_TRUE(box.Press());
    EXPECT_EQ(TextOf(browse, IDC_DRIVE1), before);
    EXPECT_EQ(At(browse, IDC_DIR1).Send(LB_GETCOUNT), rows);
    EXPECT_TRUE(Closes(browse, IDOK));
    EXPECT_EQ(Source(), Folder.Path());
    Close();
}

TEST_F(BrowseTest, AFolderThatHasGoneMeanwhileIsReportedAndTheOpenOneStays) {
    const std::wstring folder = Folder.Below(L"Source");
    MakeFolders(folder + L"\\Inner");
    const WindowProbe browse = OpenFor(folder);
    HighlightLast(browse);
    RemoveTree(folder + L"\\Inner");
    At(browse, IDC_DIR1).Post(WM_KEYDOWN, VK_RETURN);
    const MessageBoxProbe box = WaitForBox();
    EXPECT_TRUE(box.Text().starts_with(folder + L"\\Inner"));
    EXPECT_TRUE(box.Press());
    EXPECT_TRUE(Closes(browse, IDOK));
    EXPECT_EQ(Source(), folder);
    Close();
}

}  // namespace
}  // namespace ambrio::e2e
