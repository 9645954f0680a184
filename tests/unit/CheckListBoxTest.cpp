#include "platform/win32/windows/CheckListBox.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(CheckListBox, KeepsNamesTicksAndTheCurrentEntryInTheListBoxItself) {
    const HWND window =
        CreateWindowExW(0, L"ListBox", L"", WS_POPUP | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, 0, 0,
                        100, 100, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    CheckListBox list;
    list.Attach(window);
    EXPECT_EQ(-1, list.Current());
    list.Add(L"A & B", true);
    list.Add(std::wstring(300, L'n'), false);
    list.SetCurrent(1);
    EXPECT_EQ(2, list.Count());
    EXPECT_EQ(L"A & B", list.Name(0));
    EXPECT_EQ(300U, list.Name(1).size());
    EXPECT_EQ(L"", list.Name(2));
    EXPECT_TRUE(list.IsTicked(0));
    EXPECT_FALSE(list.IsTicked(1));
    EXPECT_EQ(1, list.Current());
    SendMessageW(window, LB_SETITEMDATA, 1, 1);
    EXPECT_TRUE(list.IsTicked(1));
    list.Clear();
    EXPECT_EQ(0, list.Count());
    DestroyWindow(window);
}

class ShownCheckListBox : public testing::Test {
  protected:
    ShownCheckListBox() {
        original_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ScrollOnClick)));
    }
    ~ShownCheckListBox() override { DestroyWindow(window_); }

    [[nodiscard]] LONG RowHeight() const {
        return static_cast<LONG>(SendMessageW(window_, LB_GETITEMHEIGHT, 0, 0));
    }
    [[nodiscard]] LONG InsideHeight() const {
        RECT inside = {};
        GetClientRect(window_, &inside);
        return inside.bottom;
    }
    // Makes the list box that high, in pixels, and puts twenty entries into it.
    void Fill(LONG height) {
        SetWindowPos(window_, nullptr, 0, 0, 200, height, SWP_NOMOVE | SWP_NOZORDER);
        list_.Clear();
        for (int i = 0; i < 20; ++i) {
            list_.Add(L"entry", false);
        }
    }

    HWND window_ = CreateWindowExW(
        0, L"ListBox", L"",
        WS_POPUP | LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT, 0, 0,
        200, 211, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    CheckListBox list_;

  private:
    // A click scrolls, as it does on Windows where the entry is half seen, and on Wine never.
    static LRESULT CALLBACK ScrollOnClick(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
        const LRESULT result = CallWindowProcW(original_, handle, message, wParam, lParam);
        if (message == WM_LBUTTONDOWN) {
            SendMessageW(handle, LB_SETTOPINDEX, 1, 0);
        }
        return result;
    }

    static inline WNDPROC original_ = nullptr;
};

TEST_F(ShownCheckListBox, EndsOnAWholeRowAndHardlyLower) {
    for (LONG height = 180; height < 240; ++height) {
        SetWindowPos(window_, nullptr, 0, 0, 200, height, SWP_NOMOVE | SWP_NOZORDER);
        CheckListBox list;
        list.Attach(window_);
        EXPECT_EQ(0, InsideHeight() % RowHeight()) << height;
        EXPECT_GT(InsideHeight(), height - InsideHeight() / RowHeight()) << height;
        EXPECT_LE(InsideHeight(), height);
    }
}

TEST_F(ShownCheckListBox, TicksTheEntryThatWasClickedAlsoWhereThatScrolls) {
    list_.Attach(window_);
    const LONG row = RowHeight();
    Fill(5 * row + row / 2);
    const auto click = [&](UINT message) {
        SendMessageW(window_, message, MK_LBUTTON, MAKELPARAM(6, 5 * row + row / 4));
        SendMessageW(window_, WM_LBUTTONUP, 0, MAKELPARAM(6, 5 * row + row / 4));
    };
    click(WM_LBUTTONDOWN);
    EXPECT_NE(0, SendMessageW(window_, LB_GETTOPINDEX, 0, 0)) << "the list did not scroll";
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(i == 5, list_.IsTicked(i)) << i;
    }
}

}  // namespace
}  // namespace ambrio
