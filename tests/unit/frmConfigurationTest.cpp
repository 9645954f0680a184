#include "config/frmConfiguration.h"

#include "platform/RuntimeError.h"
#include "resources/DialogIds.h"
#include "settings/SettingKeys.h"
#include "tests/unit/BeepCounter.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

class frmConfigurationTest : public FormTest {
  protected:
    void Open() { form_.Load(nullptr); }
    void Put(const wchar_t* key, const std::wstring& value) {
        Store.Values[{kGeneralSection, key}] = value;
    }
    [[nodiscard]] std::wstring General(const wchar_t* key) {
        return Store.Values.at({kGeneralSection, key});
    }
    [[nodiscard]] ControlProbe At(int control) const { return {form_.Handle(), control}; }

    // The entries, a plus before each ticked one and an arrow before the current.
    [[nodiscard]] std::wstring Sets() const {
        const ControlProbe list = At(IDC_LST_SETS);
        std::wstring text;
        for (LRESULT i = 0; i < list.Send(LB_GETCOUNT); ++i) {
            const auto entry = static_cast<WPARAM>(i);
            std::wstring name(static_cast<std::size_t>(list.Send(LB_GETTEXTLEN, entry)) + 1, L' ');
            list.Send(LB_GETTEXT, entry, reinterpret_cast<LPARAM>(name.data()));
            name.pop_back();
            text += list.Send(LB_GETCURSEL) == i ? L">" : L"";
            text += list.Send(LB_GETITEMDATA, entry) == 1 ? L"+" : L"";
            text += name + L"|";
        }
        return text;
    }

    frmConfiguration form_{Context};
};

TEST_F(frmConfigurationTest, ShowsTheSetsInTheirOrderWithTheirTicks) {
    Put(kSetsKey, L"A,B,C");
    Store.Values[{L"B", kSelectedKey}] = L"False";
    Open();
    EXPECT_EQ(L">+A|B|+C|", Sets());
}

TEST_F(frmConfigurationTest, MovesTheCurrentSetWithItsTick) {
    Put(kSetsKey, L"A,B,C");
    Store.Values[{L"A", kSelectedKey}] = L"False";
    Open();
    At(IDC_CMD_UP).Click();
    EXPECT_EQ(L">A|+B|+C|", Sets());
    At(IDC_CMD_DOWN).Click();
    At(IDC_CMD_DOWN).Click();
    EXPECT_EQ(L"+B|+C|>A|", Sets());
    At(IDC_CMD_DOWN).Click();
    EXPECT_EQ(L"+B|+C|>A|", Sets());
    At(IDC_CMD_UP).Click();
    EXPECT_EQ(L"+B|>A|+C|", Sets());
    EXPECT_TRUE(Store.Writes.empty());
}

TEST_F(frmConfigurationTest, AMovedSetStaysInView) {
    std::wstring sets = L"first";
    for (int i = 0; i < 100; ++i) {
        sets += L",next";
    }
    Put(kSetsKey, sets);
    Open();
    const ControlProbe list = At(IDC_LST_SETS);
    RECT view = {};
    GetClientRect(list.Handle(), &view);
    const auto expectInView = [&] {
        RECT entry = {};
        list.Send(LB_GETITEMRECT, static_cast<WPARAM>(list.Send(LB_GETCURSEL)),
                  reinterpret_cast<LPARAM>(&entry));
        EXPECT_GE(entry.top, 0);
        EXPECT_LE(entry.bottom, view.bottom);
    };
    for (int i = 1; i <= 40; ++i) {
        At(IDC_CMD_DOWN).Click();
        expectInView();
    }
    EXPECT_EQ(40, list.Send(LB_GETCURSEL));
    for (int i = 0; i < 40; ++i) {
        At(IDC_CMD_UP).Click();
        expectInView();
    }
    EXPECT_EQ(0, list.Send(LB_GETCURSEL));
}

TEST_F(frmConfigurationTest, TheListEndsOnAWholeRow) {
    Open();
    RECT inside = {};
    GetClientRect(At(IDC_LST_SETS).Handle(), &inside);
    EXPECT_EQ(0, inside.bottom % At(IDC_LST_SETS).Send(LB_GETITEMHEIGHT));
}

TEST_F(frmConfigurationTest, AnEmptyListOnlyBeeps) {
    const BeepCounter beeps;
    Open();
    for (const int button : {IDC_CMD_UP, IDC_CMD_DOWN, IDC_CMD_REMOVE, IDC_CMD_PROPERTIES}) {
        const int before = beeps.Count();
        At(button).Click();
        EXPECT_EQ(before + 1, beeps.Count()) << button;
    }
    EXPECT_EQ(L"", Sets());
    At(IDOK).Click();
    EXPECT_EQ(L"", General(kSetsKey));
}

TEST_F(frmConfigurationTest, BeepsAtTheEndsOfTheListAndNowhereElse) {
    const BeepCounter beeps;
    Put(kSetsKey, L"A,B,C");
    Open();
    At(IDC_CMD_UP).Click();
    EXPECT_EQ(1, beeps.Count());
    At(IDC_CMD_DOWN).Click();
    At(IDC_CMD_DOWN).Click();
    EXPECT_EQ(1, beeps.Count());
    At(IDC_CMD_DOWN).Click();
    EXPECT_EQ(2, beeps.Count());
    At(IDC_CMD_UP).Click();
    At(IDC_CMD_UP).Click();
    EXPECT_EQ(2, beeps.Count());
    At(IDC_CMD_UP).Click();
    EXPECT_EQ(3, beeps.Count());
}

TEST_F(frmConfigurationTest, SpaceAndMouseTick) {
    Put(kSetsKey, L"A,B");
    Open();
    const ControlProbe list = At(IDC_LST_SETS);
    list.Send(WM_CHAR, L' ');
    EXPECT_EQ(L">A|+B|", Sets());
    RECT place = {};
    list.Send(LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&place));
    const auto click = [&list](LONG x, LONG y) {
        list.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        list.Send(WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    };
    const LONG middle = (place.top + place.bottom) / 2;
    click(place.left + 6, middle);
    EXPECT_EQ(L"A|>B|", Sets());
    // A click on the name only selects.
    click(place.right - 2, middle);
    EXPECT_EQ(L"A|>B|", Sets());
    // Nor is anything ticked below the last entry.
    click(place.left + 6, place.bottom + 20);
    EXPECT_EQ(L"A|>B|", Sets());
}

TEST_F(frmConfigurationTest, OkWritesEverythingInItsOrderAndUnloads) {
    Put(kSetsKey, L"A,B");
    Open();
    At(IDC_CHK_LOG_ONLY_ERRORS).Click();
    At(IDC_LST_SETS).Send(WM_CHAR, L' ');
    At(IDOK).Click();
    EXPECT_EQ(nullptr, form_.Handle());
    EXPECT_EQ((std::vector<MemorySettingsStore::Address>{{L"A", kSelectedKey},
                                                         {L"B", kSelectedKey},
                                                         {kGeneralSection, kSetsKey},
                                                         {kGeneralSection, kLogOnlyErrorsKey},
                                                         {kGeneralSection, kClearLogDailyKey},
                                                         {kGeneralSection, kSecondarySaverKey}}),
              Store.Writes);
    EXPECT_EQ(L"False", (Store.Values[{L"A", kSelectedKey}]));
    EXPECT_EQ(L"Yes", General(kLogOnlyErrorsKey));
    EXPECT_EQ(L"No", General(kClearLogDailyKey));
    EXPECT_EQ(L"", General(kSecondarySaverKey));
}

TEST_F(frmConfigurationTest, TheCloseBoxDiscardsAndEscapeDoesNothing) {
    Put(kSetsKey, L"A");
    Open();
    At(IDC_LST_SETS).Send(WM_CHAR, L' ');
    SendMessageW(form_.Handle(), WM_COMMAND, IDCANCEL, 0);
    EXPECT_NE(nullptr, form_.Handle());
    SendMessageW(form_.Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(nullptr, form_.Handle());
    EXPECT_TRUE(Store.Writes.empty());
}

TEST_F(frmConfigurationTest, OffersTheSaversOfBothFolders) {
    Files.WriteFile(GetWindowsFolder() + L"\\Stars & Moons.scr");
    Files.WriteFile(GetWindowsFolder() + L"\\Alpha.SCR");
    Files.WriteFile(GetSystemFolder() + L"\\Alpha.scr");
    Put(kSecondarySaverKey, L"Stars & Moons");
    Open();
    EXPECT_EQ(4, At(IDC_CBO_SS).Send(CB_GETCOUNT));
    EXPECT_EQ(L"Stars & Moons", At(IDC_CBO_SS).Text());
    At(IDC_CBO_SS).Send(CB_SETCURSEL, 0);
    EXPECT_EQ(L"(None)", At(IDC_CBO_SS).Text());
    At(IDC_CMD_SETTINGS).Click();
    EXPECT_NE(nullptr, form_.Handle());
}

TEST_F(frmConfigurationTest, ASaverThatIsGoneLeavesNoneCurrentAndIsStoredAsEmpty) {
    Put(kSecondarySaverKey, L"Gone");
    Open();
    EXPECT_EQ(CB_ERR, At(IDC_CBO_SS).Send(CB_GETCURSEL));
    At(IDOK).Click();
    EXPECT_EQ(L"", General(kSecondarySaverKey));
}

TEST_F(frmConfigurationTest, ATickThatIsNoBooleanIsAnErrorAndNothingIsShown) {
    Put(kSetsKey, L"A");
    Store.Values[{L"A", kSelectedKey}] = L"maybe";
    EXPECT_THROW(Open(), RuntimeError);
    EXPECT_EQ(nullptr, form_.Handle());
}

TEST_F(frmConfigurationTest, AHundredSetsAndOddListsComeBackAsTheyWere) {
    std::wstring hundred;
    for (int i = 0; i < 100; ++i) {
        hundred += L"Set " + std::to_wstring(i) + L",";
    }
    hundred.pop_back();
    for (const std::wstring& sets :
         {hundred, std::wstring(L"A,, B,"), std::wstring(300, L'n') + L",x\\y,a\"b,&c,\x4e2d"}) {
        Put(kSetsKey, sets);
        Open();
        At(IDC_CMD_DOWN).Click();
        At(IDC_CMD_UP).Click();
        At(IDOK).Click();
        EXPECT_EQ(sets, General(kSetsKey));
    }
}

}  // namespace
}  // namespace ambrio
