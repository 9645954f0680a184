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

}  // namespace
}  // namespace ambrio
