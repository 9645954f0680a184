#include "config/frmBrowse.h"

#include <memory>
#include <vector>

#include "platform/ForwardingFileSystem.h"
#include "platform/win32/files/FullPath.h"
#include "resources/DialogIds.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

// A text box of its own stands for the one of the dialog that opens this one.
class frmBrowseTest : public FormTest {
  protected:
    frmBrowseTest() {
        Files.SetVolume(here_.substr(0, 2), true);
        Files.MakeFolder(here_);
        Files.MakeFolder(data_ + L"\\Inner\\Deep");
        Files.MakeFolder(data_ + L"\\Other");
    }
    ~frmBrowseTest() override { DestroyWindow(box_); }

    void Open(const std::wstring& text) {
        SetWindowTextW(box_, text.c_str());
        form_.Load(nullptr);
    }
    [[nodiscard]] ControlProbe At(int control) const { return {form_.Handle(), control}; }
    void Highlight(LRESULT row) { At(IDC_DIR1).Send(LB_SETCURSEL, static_cast<WPARAM>(row)); }
    [[nodiscard]] LRESULT Row(const wchar_t* name) {
        return At(IDC_DIR1).Send(LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                 reinterpret_cast<LPARAM>(name));
    }
    [[nodiscard]] std::wstring Chosen() {
        At(IDOK).Click();
        return WindowText(box_);
    }

    const std::wstring here_ = FullPath(L".");
    const std::wstring data_ = here_.substr(0, 2) + L"\\Data";
    HWND box_ = CreateWindowExW(0, L"Edit", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
    frmBrowse form_{Context, box_};
};

TEST_F(frmBrowseTest, BeginsWithTheFolderOfTheBox) {
    Open(data_);
    EXPECT_EQ(4, At(IDC_DIR1).Send(LB_GETCOUNT));
    EXPECT_EQ(1, At(IDC_DIR1).Send(LB_GETCURSEL));
    EXPECT_EQ(2, Row(L"Inner"));
    EXPECT_EQ(data_, Chosen());
}

TEST_F(frmBrowseTest, BeginsWithTheCurrentDirectoryWhereThereIsNoSuchFolder) {
    for (const std::wstring& text :
         {std::wstring(L"Q:\\My Documents"), std::wstring(), here_.substr(0, 2) + L"\\missing",
          std::wstring(L"\\\\"), here_.substr(0, 3) + std::wstring(400, L'x')}) {
        Open(text);
        EXPECT_EQ(here_, Chosen()) << text.size();
    }
}

TEST_F(frmBrowseTest, ReturnsWhatIsOpenAndNotWhatIsHighlighted) {
    Open(data_);
    Highlight(Row(L"Inner"));
    EXPECT_EQ(data_, Chosen());
}

TEST_F(frmBrowseTest, ADoubleClickOpens) {
    Open(data_);
    Highlight(Row(L"Inner"));
    At(IDC_DIR1).Notify(LBN_DBLCLK);
    EXPECT_EQ(3, Row(L"Deep"));
    EXPECT_EQ(data_ + L"\\Inner", Chosen());
}

TEST_F(frmBrowseTest, EnterOpensWhatIsHighlightedAndOtherwisePressesOk) {
    Open(data_);
    MSG enter = {};
    enter.hwnd = At(IDC_DIR1).Handle();
    enter.message = WM_KEYDOWN;
    enter.wParam = VK_RETURN;
    const auto takesEnter = [&] {
        return (At(IDC_DIR1).Send(WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter)) &
                DLGC_WANTMESSAGE) != 0;
    };
    EXPECT_FALSE(takesEnter());
    Highlight(0);
    EXPECT_TRUE(takesEnter());
    At(IDC_DIR1).Send(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(data_.substr(0, 3), Chosen());
}

TEST_F(frmBrowseTest, CancelLeavesTheBoxAlone) {
    Open(L"as typed");
    At(IDCANCEL).Click();
    EXPECT_EQ(nullptr, form_.Handle());
    EXPECT_EQ(L"as typed", WindowText(box_));
}

TEST_F(frmBrowseTest, ShowsTheDriveOfThePlace) {
    Open(data_);
    EXPECT_EQ(0U, At(IDC_DRIVE1).Text().find(here_.substr(0, 2)));
}

// Notes which pointer is shown while a folder is listed.
class PointerWatch : public ForwardingFileSystem {
  public:
    using ForwardingFileSystem::ForwardingFileSystem;

    std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) override {
        Seen.push_back(GetCursor());
        return ForwardingFileSystem::GetFolder(path);
    }

    std::vector<HCURSOR> Seen;
};

TEST_F(frmBrowseTest, ShowsTheWaitPointerWhileAFolderIsListedAndNoLonger) {
    PointerWatch watched{Files};
    DialogContext context{App, watched, Store, GetModuleHandleW(nullptr), L"", {}, 0};
    frmBrowse form(context, box_);
    SetWindowTextW(box_, data_.c_str());
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    const HCURSOR before = SetCursor(arrow);
    form.Load(nullptr);
    EXPECT_EQ(arrow, GetCursor());
    const std::size_t atLoad = watched.Seen.size();
    EXPECT_GT(atLoad, 0U);
    const ControlProbe list(form.Handle(), IDC_DIR1);
    list.Send(LB_SETCURSEL, 2);
    list.Notify(LBN_DBLCLK);
    EXPECT_EQ(arrow, GetCursor());
    SetCursor(before);
    EXPECT_EQ(atLoad + 1, watched.Seen.size());
    for (const HCURSOR seen : watched.Seen) {
        EXPECT_EQ(LoadCursorW(nullptr, IDC_WAIT), seen);
    }
}

}  // namespace
}  // namespace ambrio
