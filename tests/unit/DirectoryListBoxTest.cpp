#include "config/DirectoryListBox.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/win32/windows/BackBuffer.h"

namespace ambrio {
namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 20;

class DirectoryListBoxTest : public testing::Test {
  protected:
    DirectoryListBoxTest() { list_.Attach(window_); }
    ~DirectoryListBoxTest() override { DestroyWindow(window_); }

    // How many pixels of the row are as dark as its text, with this row open.
    [[nodiscard]] int Ink(const std::vector<DirectoryRow>& rows, UINT row, std::size_t open) {
        list_.Show(rows, open);
        const BackBuffer picture(kWidth, kHeight);
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_LISTBOX;
        item.itemID = row;
        item.hDC = picture.DC();
        item.rcItem = {0, 0, kWidth, kHeight};
        list_.Draw(item, rows);
        int ink = 0;
        // Right of the icon.
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 45; x < kWidth; ++x) {
                const COLORREF colour = GetPixel(picture.DC(), x, y);
                ink += GetRValue(colour) + GetGValue(colour) + GetBValue(colour) < 3 * 128 ? 1 : 0;
            }
        }
        return ink;
    }
    [[nodiscard]] LRESULT ScrollWidth(const std::vector<DirectoryRow>& rows, std::size_t open) {
        list_.Show(rows, open);
        return SendMessageW(window_, LB_GETHORIZONTALEXTENT, 0, 0);
    }

    const std::vector<DirectoryRow> rows_ = {{L"C:\\", L"C:\\", 0, true},
                                             {L"WWW Moon", L"C:\\WWW Moon", 1, true},
                                             {L"WWW Moon", L"C:\\WWW Moon\\WWW Moon", 1, true}};
    HWND window_ = CreateWindowExW(
        0, L"ListBox", L"", WS_POPUP | WS_HSCROLL | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, 0, 0, 60,
        100, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    DirectoryListBox list_;
};

TEST_F(DirectoryListBoxTest, ShowsTheOpenFolderAloneInBold) {
    const int plain = Ink(rows_, 1, 0);
    EXPECT_GT(plain, 0);
    EXPECT_GE(Ink(rows_, 1, 1), plain * 11 / 10) << "bold has more ink";
    EXPECT_EQ(Ink(rows_, 2, 1), plain) << "below the open one";
    EXPECT_EQ(Ink(rows_, 1, 2), plain) << "above the open one";
}

TEST_F(DirectoryListBoxTest, IsScrolledAsFarAsTheBoldNameGoes) {
    std::vector<DirectoryRow> rows = rows_;
    rows[1].Name = std::wstring(30, L'W');
    EXPECT_GT(ScrollWidth(rows, 1), ScrollWidth(rows, 0));
}

}  // namespace
}  // namespace ambrio
