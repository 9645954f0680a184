#include "platform/win32/windows/CheckListAccessible.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "platform/win32/AccessibilityHeaders.h"
#include "platform/win32/system/ComApartment.h"
#include "platform/win32/system/SystemLibrary.h"
#include "platform/win32/windows/CheckListBox.h"

namespace ambrio {
namespace {

struct AccessibleReleaser {
    void operator()(IAccessible* object) const { object->Release(); }
};

VARIANT Child(long number) {
    VARIANT child{};
    child.vt = VT_I4;
    child.lVal = number;
    return child;
}

// A list with three entries, of which the first and the last are ticked, as a screen reader sees
// it.
class CheckListAccessibleTest : public testing::Test {
  protected:
    CheckListAccessibleTest()
        : window_(CreateWindowExW(0, L"ListBox", L"",
                                  WS_POPUP | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, 0, 0, 100, 100,
                                  nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)) {
        list_.Attach(window_);
        list_.Add(L"Papers & plans", true);
        list_.Add(L"Music", false);
        list_.Add(L"Pictures", true);
        list_.SetCurrent(1);
        using Find = HRESULT(WINAPI*)(HWND, DWORD, REFIID, void**);
        void* object = nullptr;
        oleacc_.Function<Find>("AccessibleObjectFromWindow")(
            window_, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object);
        seen_.reset(static_cast<IAccessible*>(object));
    }
    ~CheckListAccessibleTest() override { CloseList(); }

    void CloseList() {
        if (window_ != nullptr) {
            DestroyWindow(std::exchange(window_, nullptr));
        }
    }
    [[nodiscard]] long StateOf(long child) const {
        VARIANT state{};
        return seen_->get_accState(Child(child), &state) == S_OK ? state.lVal : -1;
    }
    [[nodiscard]] bool IsChecked(long child) const {
        return (StateOf(child) & STATE_SYSTEM_CHECKED) != 0;
    }
    [[nodiscard]] static std::wstring Taken(HRESULT result, BSTR text) {
        std::wstring taken = result == S_OK && text != nullptr ? text : L"(nothing)";
        SysFreeString(text);
        return taken;
    }
    [[nodiscard]] std::wstring NameOf(long child) const {
        BSTR name = nullptr;
        const HRESULT result = seen_->get_accName(Child(child), &name);
        return Taken(result, name);
    }
    [[nodiscard]] std::wstring ActionOf(long child) const {
        BSTR action = nullptr;
        const HRESULT result = seen_->get_accDefaultAction(Child(child), &action);
        return Taken(result, action);
    }
    [[nodiscard]] long RoleOf(long child) const {
        VARIANT role{};
        return seen_->get_accRole(Child(child), &role) == S_OK ? role.lVal : -1;
    }

    ComApartment apartment_;
    SystemLibrary oleacc_{L"oleacc.dll"};
    HWND window_;
    CheckListBox list_;
    std::unique_ptr<IAccessible, AccessibleReleaser> seen_;
};

TEST_F(CheckListAccessibleTest, ShowsEachEntryAsACheckBoxWithItsNameAndTick) {
    ASSERT_NE(nullptr, seen_);
    long count = 0;
    EXPECT_EQ(S_OK, seen_->get_accChildCount(&count));
    EXPECT_EQ(3, count);
    EXPECT_EQ(ROLE_SYSTEM_LIST, RoleOf(CHILDID_SELF));
    const wchar_t* names[] = {L"Papers & plans", L"Music", L"Pictures"};
    for (long child = 1; child <= 3; ++child) {
        EXPECT_EQ(names[child - 1], NameOf(child));
        EXPECT_EQ(ROLE_SYSTEM_CHECKBUTTON, RoleOf(child));
        EXPECT_EQ(child != 2, IsChecked(child));
        EXPECT_EQ(child == 2, (StateOf(child) & STATE_SYSTEM_SELECTED) != 0);
        EXPECT_EQ(child == 2 ? L"Check" : L"Uncheck", ActionOf(child));
    }
}

TEST_F(CheckListAccessibleTest, FollowsTheTicks) {
    ASSERT_NE(nullptr, seen_);
    SendMessageW(window_, WM_CHAR, L' ', 0);
    EXPECT_TRUE(IsChecked(2));
    SendMessageW(window_, LB_SETITEMDATA, 2, 0);
    EXPECT_FALSE(IsChecked(3));
}

TEST_F(CheckListAccessibleTest, LetsAnEntryBeTicked) {
    ASSERT_NE(nullptr, seen_);
    EXPECT_EQ(S_OK, seen_->accDoDefaultAction(Child(2)));
    EXPECT_TRUE(list_.IsTicked(1));
    EXPECT_EQ(S_OK, seen_->accDoDefaultAction(Child(1)));
    EXPECT_FALSE(list_.IsTicked(0));
    EXPECT_TRUE(list_.IsTicked(2));
}

TEST_F(CheckListAccessibleTest, TellsWhereAnEntryLies) {
    ASSERT_NE(nullptr, seen_);
    RECT place{};
    SendMessageW(window_, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&place));
    MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&place), 2);
    long left = 0;
    long top = 0;
    long width = 0;
    long height = 0;
    EXPECT_EQ(S_OK, seen_->accLocation(&left, &top, &width, &height, Child(2)));
    EXPECT_EQ(place.left, left);
    EXPECT_EQ(place.top, top);
    EXPECT_EQ(place.right - place.left, width);
    EXPECT_EQ(place.bottom - place.top, height);
}

TEST_F(CheckListAccessibleTest, KnowsNoEntriesThatAreNotThere) {
    ASSERT_NE(nullptr, seen_);
    for (const long child : {-1L, 4L}) {
        EXPECT_EQ(-1, StateOf(child));
        EXPECT_EQ(-1, RoleOf(child));
        EXPECT_EQ(L"(nothing)", NameOf(child));
        EXPECT_EQ(E_INVALIDARG, seen_->accDoDefaultAction(Child(child)));
    }
    CloseList();
    EXPECT_EQ(-1, StateOf(1));
    EXPECT_EQ(L"(nothing)", NameOf(1));
}

}  // namespace
}  // namespace ambrio
