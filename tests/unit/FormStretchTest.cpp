// The dialogs with paths in them can be made wider, and what is in them follows.

#include <map>

#include "config/frmBrowse.h"
#include "config/frmProperties.h"
#include "resources/DialogIds.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

struct Place {
    LONG Left;
    LONG Top;
    LONG Width;
    LONG Height;

    friend bool operator==(const Place&, const Place&) = default;
};

class FormStretchTest : public FormTest {
  protected:
    static Place PlaceOf(const Form& form, int control) {
        RECT place = {};
        GetWindowRect(GetDlgItem(form.Handle(), control), &place);
        MapWindowPoints(nullptr, form.Handle(), reinterpret_cast<POINT*>(&place), 2);
        return {place.left, place.top, place.right - place.left, place.bottom - place.top};
    }
    static RECT WholeOf(const Form& form) {
        RECT whole = {};
        GetWindowRect(form.Handle(), &whole);
        return whole;
    }
    static void Grow(const Form& form, LONG wider, LONG higher) {
        const RECT whole = WholeOf(form);
        SetWindowPos(form.Handle(), nullptr, 0, 0, whole.right - whole.left + wider,
                     whole.bottom - whole.top + higher, SWP_NOMOVE | SWP_NOZORDER);
    }
    // What each control is to gain in place and size.
    static void ExpectGrowth(const Form& form, LONG wider, LONG higher,
                             const std::map<int, Place>& gains) {
        std::map<int, Place> before;
        for (const auto& [control, gain] : gains) {
            before[control] = PlaceOf(form, control);
        }
        Grow(form, wider, higher);
        for (const auto& [control, gain] : gains) {
            const Place& old = before[control];
            const Place now = PlaceOf(form, control);
            EXPECT_EQ((Place{old.Left + gain.Left, old.Top + gain.Top, old.Width + gain.Width,
                             old.Height + gain.Height}),
                      now)
                << control;
        }
    }
    // The sizes between which the user can pull the dialog's frame.
    static MINMAXINFO LimitsOf(const Form& form) {
        MINMAXINFO limits = {};
        limits.ptMaxTrackSize = {5000, 5000};
        SendMessageW(form.Handle(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
        return limits;
    }
    static bool CanBePulled(const Form& form) {
        return (GetWindowLongPtrW(form.Handle(), GWL_STYLE) & WS_THICKFRAME) != 0;
    }
};

TEST_F(FormStretchTest, ThePropertiesGiveTheirWidthToTheBoxes) {
    frmProperties form(Context);
    form.Load(nullptr);
    EXPECT_TRUE(CanBePulled(form));
    const std::map<int, Place> gains = {
        {IDC_TXT_SET, {0, 0, 130, 0}},
        {IDC_TXT_FOLDER_0, {0, 0, 130, 0}},
        {IDC_CMD_BROWSE_0, {130, 0, 0, 0}},
        {IDC_TXT_FOLDER_1, {0, 0, 130, 0}},
        {IDC_CMD_BROWSE_1, {130, 0, 0, 0}},
        {IDC_LST_SCHEME, {0, 0, 130, 0}},
        {IDC_FRA_COPY_RULES, {0, 0, 130, 0}},
        {IDC_CMD_ADVANCED, {0, 0, 0, 0}},
        {IDOK, {130, 0, 0, 0}},
        {IDCANCEL, {130, 0, 0, 0}},
    };
    std::map<int, Place> designed;
    for (const auto& [control, gain] : gains) {
        designed[control] = PlaceOf(form, control);
    }
    ExpectGrowth(form, 130, 0, gains);
    Grow(form, -130, 0);
    for (const auto& [control, place] : designed) {
        EXPECT_EQ(place, PlaceOf(form, control)) << control;
    }
}

TEST_F(FormStretchTest, ThePropertiesBecomeNeitherSmallerNorHigher) {
    frmProperties form(Context);
    form.Load(nullptr);
    const RECT designed = WholeOf(form);
    Grow(form, 70, 0);
    const MINMAXINFO limits = LimitsOf(form);
    EXPECT_EQ(designed.right - designed.left, limits.ptMinTrackSize.x);
    EXPECT_EQ(designed.bottom - designed.top, limits.ptMinTrackSize.y);
    EXPECT_EQ(5000, limits.ptMaxTrackSize.x);
    EXPECT_EQ(designed.bottom - designed.top, limits.ptMaxTrackSize.y);
}

TEST_F(FormStretchTest, TheBrowseDialogGivesItsSizeToTheList) {
    frmBrowse form(Context, nullptr);
    form.Load(nullptr);
    EXPECT_TRUE(CanBePulled(form));
    const MINMAXINFO limits = LimitsOf(form);
    const RECT designed = WholeOf(form);
    EXPECT_EQ(designed.right - designed.left, limits.ptMinTrackSize.x);
    EXPECT_EQ(designed.bottom - designed.top, limits.ptMinTrackSize.y);
    EXPECT_EQ(5000, limits.ptMaxTrackSize.y);
    ExpectGrowth(form, 40, 90,
                 {{IDC_DRIVE1, {0, 0, 40, 0}},
                  {IDC_DIR1, {0, 0, 40, 90}},
                  {IDOK, {40, 90, 0, 0}},
                  {IDCANCEL, {40, 90, 0, 0}}});
}

// The tooltips of disabled controls are shown by the dialog, which must know where they are.
TEST_F(FormStretchTest, TheTooltipsFollow) {
    frmProperties form(Context);
    form.Load(nullptr);
    Grow(form, 110, 0);
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = form.Handle();
    tool.uId = IDCANCEL;
    ASSERT_NE(0, SendMessageW(form.TooltipWindow(), TTM_GETTOOLINFOW, 0,
                              reinterpret_cast<LPARAM>(&tool)));
    EXPECT_EQ(PlaceOf(form, IDCANCEL),
              (Place{tool.rect.left, tool.rect.top, tool.rect.right - tool.rect.left,
                     tool.rect.bottom - tool.rect.top}));
}

TEST_F(FormStretchTest, AWiderListOfSchemesStaysUnselectedAndDropsWhole) {
    frmProperties form(Context);
    form.Load(nullptr);
    const HWND scheme = GetDlgItem(form.Handle(), IDC_LST_SCHEME);
    SendMessageW(scheme, CB_SETEDITSEL, 0, MAKELPARAM(3, 3));
    Grow(form, 100, 0);
    EXPECT_EQ(MAKELONG(3, 3), SendMessageW(scheme, CB_GETEDITSEL, 0, 0));
    SendMessageW(scheme, CB_SHOWDROPDOWN, TRUE, 0);
    COMBOBOXINFO parts = {};
    parts.cbSize = sizeof(parts);
    GetComboBoxInfo(scheme, &parts);
    RECT list = {};
    GetClientRect(parts.hwndList, &list);
    EXPECT_GE(list.bottom, 4 * SendMessageW(scheme, CB_GETITEMHEIGHT, 0, 0));
    SendMessageW(scheme, CB_SHOWDROPDOWN, FALSE, 0);
}

}  // namespace
}  // namespace ambrio
